WScript.Echo Mid("abc", 0)
' expect runtime error 5 line 1
