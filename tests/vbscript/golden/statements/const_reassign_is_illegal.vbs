Const A = 1
A = 2
' expect runtime error 501 line 2
