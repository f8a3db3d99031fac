Dim a
a = 1 2
' expect compile error 1025 line 2
