Sub T() : .Name = 1 : End Sub : T
' expect runtime error 505 line 1
