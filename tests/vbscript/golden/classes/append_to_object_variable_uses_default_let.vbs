' Appending to a variable holding an object (s = s & x) also goes through the default Let.
Class Box
    Private m_v
    Public Default Property Get Value : Value = m_v : End Property
    Public Property Let Value(x) : m_v = x : End Property
End Class
Dim o
Set o = New Box
o = "a"
o = o & "b" & "c"
WScript.Echo TypeName(o), o
Sub T()
    Dim l
    Set l = New Box
    l = "x"
    l = l & "y"
    WScript.Echo TypeName(l), l.Value
End Sub
T
' expect: Box abc
' expect: Box xy
