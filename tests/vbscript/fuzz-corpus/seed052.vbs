While True
    x = 1

' expect compile error 1018 line 3
