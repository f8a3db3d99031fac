Dim r
r = ("abc" = 5)
' expect runtime error 13 line 2
