' Unary minus binds tighter than ^: -2 ^ 2 is 4.
WScript.Echo 2 + 3 * 4, (2 + 3) * 4, -2 ^ 2, 2 ^ 3 ^ 2
WScript.Echo 10 - 4 - 3, 7 \ 2 * 2, 8 Mod 3 * 2
WScript.Echo Not 1 = 2, 1 < 2 And 3 > 4, 1 + 1 & "x"
WScript.Echo 5 - -3, 2 * -3
' expect: 14 20 4 64
' expect: 3 1 2
' expect: True False 2x
' expect: 8 -6
