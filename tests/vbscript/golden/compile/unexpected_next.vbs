Next
' expect compile error 1055 line 1
