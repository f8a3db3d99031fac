Do
    x = 1

' expect compile error 1019
