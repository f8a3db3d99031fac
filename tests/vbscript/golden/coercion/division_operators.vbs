WScript.Echo 7 / 2, TypeName(4 / 2)
WScript.Echo 2 ^ 10, TypeName(2 ^ 2), 2 ^ -1
' expect: 3.5 Double
' expect: 1024 Double 0.5
