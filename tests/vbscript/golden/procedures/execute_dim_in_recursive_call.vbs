' An Execute'd Dim in an inner call of a recursive procedure; the outer call and a class
' method use such locals safely too.
Sub Inc(v)
    v = v + 1
End Sub
Sub P(depth)
    If depth = 0 Then
        Execute "Dim q : q = 100"
        WScript.Echo "inner", Eval("q")
        Exit Sub
    End If
    P depth - 1
    WScript.Echo "outer", IsEmpty(Eval("q"))
    Execute "q = 5 : Inc q"
    WScript.Echo Eval("q")
End Sub
P 1
Class K
    Public f
    Sub M()
        Execute "Dim z : z = 3 : f = z * 2"
        WScript.Echo Eval("z"), f
    End Sub
End Class
Dim obj
Set obj = New K
obj.M
obj.M
' expect: inner 100
' expect: outer True
' expect: 6
' expect: 3 6
' expect: 3 6
