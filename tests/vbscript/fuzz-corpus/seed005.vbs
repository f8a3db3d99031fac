Dim a()
ReDim a(2)
a(0) = 1 : a(1) = 2 : a(2) = 3
ReDim Preserve a(4)
a(4) = 5
WScript.Echo Join(a, ","), UBound(a)
ReDim Preserve a(1)
WScript.Echo Join(a, ",")
ReDim a(1)
WScript.Echo "[" & Join(a, ",") & "]"
' expect: 1,2,3,,5 4
' expect: 1,2
' expect: [,]
