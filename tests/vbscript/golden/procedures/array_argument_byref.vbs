Sub Fill(arr)
    arr(0) = "filled"
End Sub
Sub FillCopy(ByVal arr)
    arr(0) = "copy"
End Sub
Dim a(1)
Fill a
FillCopy a
WScript.Echo a(0)
' expect: filled
