Class Kay
    Public V
End Class
Dim k
Set k = New Kay
Set k = Nothing
k.V = 1
' expect runtime error 91 line 7
