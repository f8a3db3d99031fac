Me.x = 1
' expect compile error 1037 line 1
