On Error Resume Next
Dim x
x = 1 / 0
WScript.Echo Err.Number, Err.Description, Err.Source
x = CInt("abc")
WScript.Echo Err.Number, Err.Description
' expect: 11 Division by zero Microsoft VBScript runtime error
' expect: 13 Type mismatch
