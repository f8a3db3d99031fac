Sub Handles()
    On Error Resume Next
    Dim x
    x = 1 / 0
    WScript.Echo "handled inside", Err.Number
End Sub
Handles
WScript.Echo "caller goes on"
Dim y
y = 1 / 0
' expect: handled inside 11
' expect: caller goes on
' expect runtime error 11 line 10
