Select Case 5
    Case Is > 3
        WScript.Echo "no"
End Select
' expect compile error 1002 line 2
