WScript.Echo 7 / 2, TypeName(4 / 2)
WScript.Echo 7 \ 2, -7 \ 2, 7.6 \ 2
WScript.Echo 7 Mod 3, -7 Mod 3, 7.5 Mod 2
WScript.Echo 2 ^ 10, TypeName(2 ^ 2), 2 ^ -1
' expect: 3.5 Double
' expect: 3 -3 4
' expect: 1 -1 0
' expect: 1024 Double 0.5
