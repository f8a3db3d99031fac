Dim n
n = 3
n.Go
' expect runtime error 424 line 3
