Dim a, x, seen
a = Array(1, 2, 3, 4)
For Each x In a
    If x = 3 Then Exit For
    seen = seen & x
    a(3) = 100
Next
WScript.Echo seen, a(3), x
' expect: 12 100 3
