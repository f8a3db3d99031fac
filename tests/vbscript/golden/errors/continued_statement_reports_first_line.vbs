' A run-time error in a statement continued over several lines is reported at its first line.
Dim total
total = 1 + _
        2 + _
        1 / 0
' expect runtime error 11 line 3
