Class Box
    Public Inner, Name
End Class
Dim a
Set a = New Box
Set a.Inner = New Box
a.Name = "outer"
With a
    With .Inner
        .Name = "inner"
    End With
    WScript.Echo .Name, .Inner.Name
End With
' expect: outer inner
