On Error Resume Next
Dim i, total
For i = -2 To 2
    total = total + 10 / i
Next
WScript.Echo total, Err.Number
' expect: 0 11
