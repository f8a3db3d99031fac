Class Twice
    Public Sub A()
    End Sub
    Public Sub A()
    End Sub
End Class
' expect compile error 1041 line 4
