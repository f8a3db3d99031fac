Execute "x = = 1"
' expect runtime error 1002 line 1
