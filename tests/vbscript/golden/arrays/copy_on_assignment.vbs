Dim a, b
a = Array(1, 2, 3)
b = a
b(0) = 100
WScript.Echo a(0), b(0)
' expect: 1 100
