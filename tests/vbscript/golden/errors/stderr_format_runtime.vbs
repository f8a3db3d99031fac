WScript.Echo "line one"
WScript.Echo 1 / 0
' expect: line one
' expect runtime error 11 line 2
