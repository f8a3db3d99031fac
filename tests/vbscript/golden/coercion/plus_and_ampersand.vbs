WScript.Echo "1" + 2, TypeName("1" + 2)
WScript.Echo "1" & 2
WScript.Echo "a" + "b"
WScript.Echo 1 & 2 + 3
WScript.Echo Empty + 1, TypeName(Empty + Empty)
WScript.Echo "x" + Empty
' expect: 3 Double
' expect: 12
' expect: ab
' expect: 15
' expect: 1 Integer
' expect: x
