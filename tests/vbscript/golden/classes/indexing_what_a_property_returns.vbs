Class Holder
    Private m_items
    Private Sub Class_Initialize()
        m_items = Array("a", "b", "c")
    End Sub
    Public Property Get Items()
        Items = m_items
    End Property
    Public Function Letters()
        Letters = m_items
    End Function
End Class
Dim h
Set h = New Holder
WScript.Echo h.Items(1), h.Letters()(2), h.Letters(0), UBound(h.Items)
' expect: b c a 2
