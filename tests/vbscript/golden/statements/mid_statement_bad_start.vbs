Dim s
s = "abc"
Mid(s, 0) = "x"
' expect runtime error 5 line 3
