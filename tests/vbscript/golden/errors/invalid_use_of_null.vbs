WScript.Echo CLng(Null)
' expect runtime error 94 line 1
