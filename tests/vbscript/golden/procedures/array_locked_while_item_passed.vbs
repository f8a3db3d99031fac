Dim d()
ReDim d(2)
Sub Grow(item)
    ReDim d(5)
End Sub
Grow d(1)
' expect runtime error 10 line 4
