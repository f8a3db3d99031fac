' Items of an array held in a Variant go ByRef; an object's property goes ByVal.
Sub Inc(x)
    x = x + 1
End Sub
Class C
    Public p
End Class
Dim b, o
b = Array(1, 2)
Inc b(0)
Set o = New C
o.p = 10
Inc o.p
Call Inc(o.p)
WScript.Echo b(0), o.p
' expect: 2 10
