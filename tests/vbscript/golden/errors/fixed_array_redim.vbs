' A fixed array refuses ReDim (10) before the new bounds are read.
Dim a(2)
ReDim a("not a number")
' expect runtime error 10 line 3
