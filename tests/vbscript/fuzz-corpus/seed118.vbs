Function F(n)
    F = "start"
    If n > 0 Then Exit Function
    F = "end"
End Function
Sub S()
    WScript.Echo "in"
    Exit Sub
    WScript.Echo "never"
End Sub
WScript.Echo F(1), F(0)
S
' expect: start end
' expect: in
