If True Then
    x = 1
End Sub
' expect compile error 1012 line 3
