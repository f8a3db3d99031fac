On Error Resume Next
Dim x
x = 1 / 0
WScript.Echo "continued", Err.Number
Err.Clear
WScript.Echo Err.Number
' expect: continued 11
' expect: 0
