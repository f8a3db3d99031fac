WScript.Echo Len("a", "b")
' expect runtime error 450 line 1
