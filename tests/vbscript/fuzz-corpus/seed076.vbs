Dim o
Set o = 5
' expect runtime error 424 line 2
