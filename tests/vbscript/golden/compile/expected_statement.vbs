Dim a
)
' expect compile error 1024 line 2
