WScript.Echo 12 And 10, 12 Or 10, 12 Xor 10, Not 0, Not 5
WScript.Echo True And False, True Or False, True Xor True, Not True
WScript.Echo 5 Eqv 3, True Imp False, False Imp True
WScript.Echo TypeName(1 And 2), TypeName(70000 And 1), TypeName(True And True)
' expect: 8 14 6 -1 -6
' expect: False True False False
' expect: -7 False True
' expect: Integer Long Boolean
