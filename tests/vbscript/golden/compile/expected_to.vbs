For i = 1 5
Next
' expect compile error 1013 line 1
