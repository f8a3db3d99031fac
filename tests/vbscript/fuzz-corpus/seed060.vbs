Sub S()
End Sub
S = 5
' expect runtime error 501 line 3
