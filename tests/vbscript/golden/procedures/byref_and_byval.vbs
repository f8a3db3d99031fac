Sub Change(ByRef a, ByVal b, c)
    a = a + 1
    b = b + 1
    c = c + 1
End Sub
Dim x, y, z
x = 1 : y = 1 : z = 1
Change x, y, z
WScript.Echo x, y, z
Change (x), y, (z)
WScript.Echo x, y, z
Call Change(x, y, z)
WScript.Echo x, y, z
' expect: 2 1 2
' expect: 2 1 2
' expect: 3 1 3
