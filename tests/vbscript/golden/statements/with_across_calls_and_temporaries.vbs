' A With object survives calls that run their own With blocks, and a With on a function's
' result holds that temporary object.
Class N
    Public v, child
    Function Mk(x)
        Set Mk = New N
        Mk.v = x
    End Function
End Class
Dim a
Set a = New N
a.v = 1
Set a.child = a.Mk(2)
Sub Inner()
    With a.child
        .v = "inner"
    End With
End Sub
With a
    .v = .v + 10
    With .Mk(7)
        .v = .v * 2
        WScript.Echo .v
    End With
    Inner
    WScript.Echo .v, .child.v
End With
' expect: 14
' expect: 11 inner
