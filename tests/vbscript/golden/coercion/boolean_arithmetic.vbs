WScript.Echo True + True, TypeName(True + 1), -True, True = -1
' expect: -2 Integer 1 True
