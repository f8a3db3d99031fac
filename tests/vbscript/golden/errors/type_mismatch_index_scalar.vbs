Dim s
s = 5
WScript.Echo s(1)
' expect runtime error 13 line 3
