Function F(a, b)
    F = a + b
End Function
WScript.Echo F(1)
' expect runtime error 450 line 4
