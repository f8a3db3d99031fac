Sub S(a)
End Sub
S 1, 2
' expect runtime error 450 line 3
