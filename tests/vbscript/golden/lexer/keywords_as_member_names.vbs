Class Bag
    Public [End], [Loop]
End Class
Dim b
Set b = New Bag
b.End = 1
b.Loop = 2
WScript.Echo b.End + b.Loop
' expect: 3
