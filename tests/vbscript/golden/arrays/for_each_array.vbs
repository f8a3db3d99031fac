Dim x, total
For Each x In Array(1, 2, 3, 4)
    total = total + x
Next
WScript.Echo total
' expect: 10
