Class V
    Public Default Property Get Value
        Value = 5
    End Property
End Class
Dim o
Set o = New V
WScript.Echo o + 1, o * 2, o = 5
' expect: 6 10 True
