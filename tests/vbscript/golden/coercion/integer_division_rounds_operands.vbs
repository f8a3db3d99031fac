' \ and Mod round their operands to whole numbers half to even first, and truncate toward zero.
WScript.Echo 2.5 \ 1, 3.5 \ 1, -2.5 \ 1, 5 \ 1.5, 5 Mod 1.5
WScript.Echo 2.5 Mod 2, 3.5 Mod 2, 5.5 Mod 3
WScript.Echo -7 \ 2, 7 \ -2, -7 Mod 2, 7 Mod -2, -7 Mod -2
WScript.Echo TypeName(5 \ 2), TypeName(5.5 \ 2), TypeName(100000 \ 2), TypeName("7" \ "2")
' expect: 2 4 -2 2 1
' expect: 0 0 0
' expect: -3 -3 -1 1 -1
' expect: Integer Long Long Long
