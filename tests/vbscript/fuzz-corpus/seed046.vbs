ReDim a
' expect compile error 1005 line 1
