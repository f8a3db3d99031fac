Dim x
x = "abc" + 1
' expect runtime error 13 line 2
