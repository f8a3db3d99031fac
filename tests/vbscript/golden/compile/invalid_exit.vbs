Exit Do
' expect compile error 1039 line 1
