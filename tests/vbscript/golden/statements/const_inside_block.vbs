If True Then
    Const Inner = 7
End If
Sub UseIt()
    Const Local = "L"
    WScript.Echo Inner, Local
End Sub
UseIt
' expect: 7 L
