Dim a
Const C = a
' expect compile error 1045 line 2
