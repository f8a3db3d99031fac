Dim a(2)
ReDim a(5)
' expect runtime error 10 line 2
