' A default Property Get alone takes no value: the plain assignment fails with 438.
Class DG
    Public Default Property Get V : V = 1 : End Property
End Class
Dim o
Set o = New DG
o = 5
' expect runtime error 438 line 7
