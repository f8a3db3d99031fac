' The condition after Loop is its own line's statement part: reported at the Loop line.
Dim a
a = 1
Do
    a = a + 1
Loop While a < _
    (1 / 0)
' expect runtime error 11 line 6
