Dim outer
outer = Array(Array(1, 2), Array("x", "y", "z"))
WScript.Echo outer(1)(2), UBound(outer(1)), outer(0)(0) + outer(0)(1)
' expect: z 2 3
