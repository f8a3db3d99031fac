' Fix, Int, Round (halves to even, digits), Abs, Sgn, Sqr, Exp, Log, trigonometry, Rnd.
WScript.Echo Round(2.5) ' expect: 2
WScript.Echo Round(1.005, 2) ' expect: 1
WScript.Echo Round(12.345, 1) ' expect: 12.3
WScript.Echo Round("2.5") ' expect: 2
WScript.Echo TypeName(Round(7)) ' expect: Integer
WScript.Echo Fix(-2.5) & " " & Int(-2.5) ' expect: -2 -3
WScript.Echo Fix(2.7) & " " & Int(2.7) ' expect: 2 2
WScript.Echo TypeName(Int(2.7)) & " " & TypeName(Int(2)) ' expect: Double Integer
WScript.Echo IsNull(Int(Null)) ' expect: True
WScript.Echo Abs(-3) & " " & Abs(3.5) ' expect: 3 3.5
WScript.Echo TypeName(Abs(-32768)) ' expect: Long
WScript.Echo Sgn(-2) & " " & Sgn(0) & " " & Sgn(0.1) ' expect: -1 0 1
WScript.Echo Sqr(16) ' expect: 4
WScript.Echo Exp(0) & " " & Log(1) ' expect: 1 0
WScript.Echo Round(Atn(1) * 4, 10) ' expect: 3.1415926536
WScript.Echo Sin(0) & " " & Cos(0) & " " & Tan(0) ' expect: 0 1 0
WScript.Echo Rnd(-1) = Rnd(-1) ' expect: True
x = Rnd(-5)
y = Rnd
WScript.Echo Rnd(0) = y ' expect: True
Randomize
x = Rnd
WScript.Echo x >= 0 And x < 1 ' expect: True
WScript.Echo TypeName(Rnd) ' expect: Single
WScript.Echo TypeName(Round(True)) & " " & TypeName(Round(Empty)) ' expect: Boolean Integer
