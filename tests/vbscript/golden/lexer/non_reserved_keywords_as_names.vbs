' Property, Default, Error, Explicit and Step are keywords only in their own places; elsewhere they
' name variables, parameters, procedures, classes and members.
Sub Test(property)
    Dim default, error, explicit, step
    default = 1 : error = 2 : explicit = 3 : step = 4
    For property = 1 To 2 : Next
    WScript.Echo property, default + error + explicit + step
End Sub
Class Property
    Private step
    Public Property Get Default() Default = step End Property
    Public Property Let Default(error) step = error End Property
    Function Explicit(property) Explicit = property & "!" End Function
    Sub Property() WScript.Echo "sub Property" End Sub
End Class
Dim p
Test 0
Set p = New Property
p.Default = "set"
WScript.Echo TypeName(p), p.Default, p.Explicit("x")
p.Property
' expect: 3 10
' expect: Property set x!
' expect: sub Property
