Dim x
x = 0 / 0
' expect runtime error 6 line 2
