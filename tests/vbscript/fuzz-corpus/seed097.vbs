On Error Resume Next
Dim x
x = 1 / 0
On Error GoTo 0
WScript.Echo Err.Number
x = 1 / 0
WScript.Echo "never"
' expect: 0
' expect runtime error 11 line 6
