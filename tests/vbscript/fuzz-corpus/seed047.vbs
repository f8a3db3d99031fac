For i = 1 To 2
    x = 1

' expect compile error 1020 line 3
