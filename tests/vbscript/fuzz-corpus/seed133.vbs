WScript.Echo Twice(4)
Function Twice(n)
    Twice = n * 2
End Function
Dim later
WScript.Echo IsEmpty(later)
' expect: 8
' expect: True
