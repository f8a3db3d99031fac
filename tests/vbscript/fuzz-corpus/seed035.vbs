Class A
    Private Default Function F()
    End Function
End Class
' expect compile error 1057 line 2
