Sub A()
End Sub
Sub A()
End Sub
' expect compile error 1041 line 3
