Sub A()
    Sub B()
    End Sub
End Sub
' expect compile error 1002 line 2
