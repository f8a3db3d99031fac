' A second statement that starts on a continued line is reported at its own start.
Dim x, y
x = 1 + _
    2 : y = _
    1 / 0
' expect runtime error 11 line 4
