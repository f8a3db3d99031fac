Dim x
x = 5 ? 3
' expect compile error 1032 line 2
