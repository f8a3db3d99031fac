Sub Inc(n)
    n = n + 1
End Sub
Sub IncVal(ByVal n)
    n = n + 1
End Sub
Dim a(2), m(1, 1)
a(1) = 10
Inc a(1)
IncVal a(1)
Inc (a(1))
m(1, 0) = 5
Inc m(1, 0)
WScript.Echo a(1), m(1, 0)
' expect: 11 6
