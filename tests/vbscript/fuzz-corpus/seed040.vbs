For i 1 To 5
Next
' expect compile error 1011 line 1
