Class Holder
    Private m_item
    Public Property Set Item(o)
        Set m_item = o
    End Property
    Public Property Get Item()
        Set Item = m_item
    End Property
End Class
Class Thing
    Public Label
End Class
Dim h, t
Set h = New Holder
WScript.Echo TypeName(h.Item)
Set t = New Thing
t.Label = "thing"
Set h.Item = t
WScript.Echo h.Item.Label, h.Item Is t, TypeName(h)
Set t = Nothing
WScript.Echo t Is Nothing, h.Item Is Nothing
' expect: Empty
' expect: thing True Holder
' expect: True False
