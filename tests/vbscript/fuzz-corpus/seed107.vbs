Dim a
Dim a
' expect compile error 1041 line 2
