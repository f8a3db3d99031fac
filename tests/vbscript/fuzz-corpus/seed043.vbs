Dim n
Dim a(n)
' expect compile error 1026 line 2
