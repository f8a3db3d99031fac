Dim a()
ReDim a(2, 2)
ReDim Preserve a(3, 3)
' expect runtime error 9 line 3
