WScript.Echo "before"
NotThere 1, 2
' expect: before
' expect runtime error 13 line 2
