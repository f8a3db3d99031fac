Class Acc
    Private total
    Public Function AddTwice(n)
        Me.AddOnce n
        AddOnce n
        Set AddTwice = Me
    End Function
    Public Sub AddOnce(n)
        total = total + n
    End Sub
    Public Property Get Value
        Value = total
    End Property
End Class
Dim a
Set a = New Acc
WScript.Echo a.AddTwice(3).AddTwice(1).Value
' expect: 8
