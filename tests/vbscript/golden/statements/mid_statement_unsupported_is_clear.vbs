Dim s
s = "hello"
WScript.Echo Mid(s, 2, 3)
' expect: ell
