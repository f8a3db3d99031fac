' Left, Right, Mid (also past the end), Len, the byte forms, trimming, case, Space, String.
WScript.Echo Left("abcdef", 2) ' expect: ab
WScript.Echo Left("ab", 10) ' expect: ab
WScript.Echo Right("abcdef", 2) ' expect: ef
WScript.Echo Right("ab", 10) ' expect: ab
WScript.Echo Mid("abcdef", 3) ' expect: cdef
WScript.Echo Mid("abcdef", 3, 2) ' expect: cd
WScript.Echo "[" & Mid("abc", 5) & "]" ' expect: []
WScript.Echo "[" & Mid("abc", 3, 10) & "]" ' expect: [c]
WScript.Echo "[" & Mid("abc", 2, 0) & "]" ' expect: []
WScript.Echo IsNull(Mid(Null, 1)) ' expect: True
WScript.Echo IsNull(Left(Null, 1)) ' expect: True
WScript.Echo Len("abc") ' expect: 3
WScript.Echo Len(12345) ' expect: 5
WScript.Echo IsNull(Len(Null)) ' expect: True
WScript.Echo Len(Empty) ' expect: 0
WScript.Echo LenB("abc") ' expect: 6
WScript.Echo LeftB("abc", 4) ' expect: ab
WScript.Echo MidB("abc", 3, 2) ' expect: b
WScript.Echo RightB("abc", 2) ' expect: c
WScript.Echo "[" & LTrim("  a b  ") & "]" ' expect: [a b  ]
WScript.Echo "[" & RTrim("  a b  ") & "]" ' expect: [  a b]
WScript.Echo "[" & Trim("  a b  ") & "]" ' expect: [a b]
WScript.Echo Len(Trim(vbTab & "a")) ' expect: 2
WScript.Echo UCase("straße") ' expect: STRAßE
WScript.Echo LCase("ÀÉÎ") ' expect: àéî
WScript.Echo "[" & Space(3) & "]" ' expect: [   ]
WScript.Echo String(3, "xyz") ' expect: xxx
WScript.Echo String(2, 65) ' expect: AA
WScript.Echo StrReverse("abc") ' expect: cba
