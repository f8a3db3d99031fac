Execute "x = = 1"
' expect compile error 1002 line 1
