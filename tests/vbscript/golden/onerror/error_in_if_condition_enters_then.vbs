On Error Resume Next
If 1 / 0 > 1 Then
    WScript.Echo "then branch", Err.Number
Else
    WScript.Echo "else branch"
End If
' expect: then branch 11
