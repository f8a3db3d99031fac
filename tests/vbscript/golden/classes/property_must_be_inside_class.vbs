Property Get Loose()
End Property
' expect compile error 1048 line 1
