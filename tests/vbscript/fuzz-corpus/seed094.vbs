On Error Resume Next
Err.Raise 42
If Err Then WScript.Echo "error", Err
' expect: error 42
