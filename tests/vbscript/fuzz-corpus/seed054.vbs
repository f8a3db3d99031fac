Dim a
Loop
' expect compile error 1038 line 2
