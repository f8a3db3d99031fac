Dim a(2)
a(2) = 1
a(3) = 1
' expect runtime error 9 line 3
