Dim s, n
s = "Beta"
n = 4
Select Case LCase(s)
    Case "alpha"
        WScript.Echo "a"
    Case "be" & "ta"
        WScript.Echo "b"
End Select
Select Case True
    Case n < 3
        WScript.Echo "small"
    Case n < 10
        WScript.Echo "medium"
End Select
' expect: b
' expect: medium
