Class Bag
    Public Items(2)
    Public Dyn()
    Public Sub Fill()
        Items(0) = "a" : Items(1) = "b" : Items(2) = "c"
        ReDim Dyn(1)
        Dyn(1) = "z"
    End Sub
End Class
Dim b
Set b = New Bag
b.Fill
WScript.Echo b.Items(1), UBound(b.Items), b.Dyn(1)
b.Items(1) = "B"
WScript.Echo Join(b.Items, "")
' expect: b 2 z
' expect: aBc
