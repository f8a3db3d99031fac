Dim a
a = (1 + 
' expect compile error 1023 line 2
