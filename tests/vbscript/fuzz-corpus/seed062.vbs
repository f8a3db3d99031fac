Dim x
x = 1 / 0
' expect runtime error 11 line 2
