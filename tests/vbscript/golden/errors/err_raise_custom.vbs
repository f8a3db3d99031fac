Err.Raise 1234, "mysource", "my description"
' expect runtime error 1234 line 1
