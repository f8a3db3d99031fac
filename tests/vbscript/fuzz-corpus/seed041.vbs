Dim 5
' expect compile error 1010 line 1
