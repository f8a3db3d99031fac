Class P
    Public V
End Class
Dim a, b
Set a = New P
a.V = 1
Set b = a
b.V = 2
WScript.Echo a.V
' expect: 2
