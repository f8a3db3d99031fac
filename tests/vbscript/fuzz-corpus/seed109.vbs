Sub Two(a, b)
    WScript.Echo TypeName(a), TypeName(b)
End Sub
Two 1, "x"
' expect: Integer String
