WScript.Echo 5 Mod 0
' expect runtime error 11 line 1
