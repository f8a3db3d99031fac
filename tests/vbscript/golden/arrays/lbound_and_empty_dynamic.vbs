Dim a()
WScript.Echo LBound(Array(5)), UBound(Array())
ReDim a(0)
WScript.Echo UBound(a)
' expect: 0 -1
' expect: 0
