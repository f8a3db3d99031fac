Class D
    Public Default Property Get Value
        Value = 42
    End Property
End Class
Dim o, v
Set o = New D
v = o
WScript.Echo v, TypeName(v)
' expect: 42 Integer
