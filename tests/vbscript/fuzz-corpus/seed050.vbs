If True
    x = 1
End If
' expect compile error 1017 line 1
