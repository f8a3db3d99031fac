Class Point
    Public X, Y
End Class
Dim p
Set p = New Point
With p
    .X = 3
    .Y = 4
    WScript.Echo .X * .X + .Y * .Y
End With
' expect: 25
