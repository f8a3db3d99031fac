' Assigning without Set to a variable that holds an object calls its default Property Let;
' the variable keeps the object.
Class Box
    Private m_v
    Public Default Property Get Value : Value = m_v : End Property
    Public Property Let Value(x) : m_v = x : End Property
End Class
Dim o, keep
Set o = New Box
Set keep = o
o = 5
WScript.Echo TypeName(o), o.Value, keep.Value, o Is keep
Sub Fill(b)
    Dim local
    Set local = b
    local = "via local"
    b = b & "!"
End Sub
Fill o
WScript.Echo o
' expect: Box 5 5 True
' expect: via local!
