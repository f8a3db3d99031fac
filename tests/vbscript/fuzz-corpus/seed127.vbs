Sub Show(a, b)
End Sub
Show(1, 2)
' expect compile error 1044 line 3
