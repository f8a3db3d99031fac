Sub Show(a, b, c)
End Sub
Show 1, _
     2, _
     CLng("x")
' expect runtime error 13 line 3
