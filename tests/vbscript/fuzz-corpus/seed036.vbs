WScript.Echo "runs?"
x = 1 1
' expect compile error 1025 line 2
