Class Counter
    Private m_count
    Public Name
    Private Sub Class_Initialize()
        m_count = 0
        Name = "ctr"
    End Sub
    Public Sub Add(n)
        m_count = m_count + n
    End Sub
    Public Property Get Count()
        Count = m_count
    End Property
    Public Property Let Count(v)
        m_count = v
    End Property
    Public Function Describe()
        Describe = Name & "=" & m_count
    End Function
End Class
Dim c
Set c = New Counter
c.Add 5
c.Add 2
WScript.Echo c.Count, c.Describe()
c.Count = 100
WScript.Echo c.Describe
' expect: 7 ctr=7
' expect: ctr=100
