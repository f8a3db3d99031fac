WScript.Echo CInt(40000)
' expect runtime error 6 line 1
