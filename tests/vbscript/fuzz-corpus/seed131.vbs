Select Case 5
    Case 1 To 9
        WScript.Echo "no"
End Select
' expect compile error 1025 line 2
