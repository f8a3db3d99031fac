Class C
    Public A
End Class
Set o = New C
WScript.Echo o.B
' expect runtime error 438 line 5
