Class Grid
    Private cells(3)
    Public Property Get Cell(i)
        Cell = cells(i)
    End Property
    Public Property Let Cell(i, v)
        cells(i) = v * 10
    End Property
End Class
Dim g
Set g = New Grid
g.Cell(2) = 4
WScript.Echo g.Cell(2), IsEmpty(g.Cell(1))
' expect: 40 True
