Dim f(2), d()
f(1) = "x"
Erase f
WScript.Echo UBound(f), IsEmpty(f(1))
ReDim d(3)
Erase d
WScript.Echo UBound(d)
' expect: 2 True
' expect runtime error 9 line 7
