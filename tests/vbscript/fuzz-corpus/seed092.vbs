Dim s
s = "abc
' expect compile error 1033 line 2
