Select 5
End Select
' expect compile error 1021 line 1
