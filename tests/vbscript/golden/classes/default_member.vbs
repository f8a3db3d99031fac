Class Greeter
    Public Default Function Greet(who)
        Greet = "hello " & who
    End Function
End Class
Class Named
    Public Default Property Get Value()
        Value = "named value"
    End Property
End Class
Dim g, n
Set g = New Greeter
WScript.Echo g("bob")
Set n = New Named
WScript.Echo n & "!", "" & n
' Empty parentheses call the default member; the bare name is the object.
WScript.Echo TypeName(n()), TypeName(n)
' expect: hello bob
' expect: named value! named value
' expect: String Named
