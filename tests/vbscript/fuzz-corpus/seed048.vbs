x = (1 + 2
' expect compile error 1006 line 1
