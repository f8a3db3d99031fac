Option Explicit
Sub Test()
    Dim ok
    ok = 1
    notDeclared = 2
End Sub
Test
' expect runtime error 500 line 5
