Function Level2(x)
    Level2 = x(1)
End Function
Function Level1(x)
    Level1 = Level2(x) + 1
End Function
WScript.Echo Level1(5)
' expect runtime error 13 line 2
