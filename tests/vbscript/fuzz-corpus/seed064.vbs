Sub Inner()
    Dim x
    x = "a" * 2
End Sub
Inner
' expect runtime error 13 line 3
