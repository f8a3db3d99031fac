Dim s
s = 5
WScript.Echo s.Name
' expect runtime error 424 line 3
