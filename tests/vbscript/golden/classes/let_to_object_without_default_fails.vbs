' Without a default property, a plain assignment to an object variable is an error.
Class Plain
    Public z
End Class
Dim p
Set p = New Plain
p = 3
' expect runtime error 438 line 7
