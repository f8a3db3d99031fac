Function Square(x)
    Square = x * x
End Function
Dim f
Set f = GetRef("Square")
WScript.Echo f(7)
' expect: 49
