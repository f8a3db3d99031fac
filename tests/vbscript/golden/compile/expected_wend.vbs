While True
    x = 1

' expect compile error 1018
