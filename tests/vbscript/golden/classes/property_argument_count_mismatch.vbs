Class P
    Public Property Get V(i)
    End Property
    Public Property Let V(x)
    End Property
End Class
' expect compile error 1051 line 4
