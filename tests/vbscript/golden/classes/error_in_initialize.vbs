Class Broken
    Private Sub Class_Initialize()
        Dim x
        x = 1 / 0
    End Sub
End Class
Dim b
Set b = New Broken
' expect runtime error 11 line 4
