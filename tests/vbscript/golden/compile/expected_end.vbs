If True Then
    x = 1

' expect compile error 1014
