Sub Fails()
    WScript.Echo "before"
    Dim x
    x = 1 / 0
    WScript.Echo "not reached in callee"
End Sub
On Error Resume Next
Fails
WScript.Echo "after call", Err.Number
' expect: before
' expect: after call 11
