' Plain assignment (no Set) to a variable that holds a script class instance replaces what the
' variable holds, with or without a default property, and so does s = s & x. Windows has no
' default Property Let to call here: Default may only mark a Property Get, and a script that
' relies on the replacement (reusing a variable for a number after an object) runs there
' without error. Host objects with a default property are different: they keep their place and
' take the value (see the script control tests). An object on the right is still read through
' its default property.
Class Box
    Private m_v
    Public Default Property Get Value : Value = m_v : End Property
    Public Property Let Value(x) : m_v = x : End Property
End Class
Class Plain
End Class
Sub Fill(b)
    b = "via parameter"
End Sub
Dim o, keep, p
Set o = New Box
Set keep = o
o = 5
WScript.Echo TypeName(o), o, TypeName(keep)
Set p = New Plain
p = "text"
p = p & "!"
WScript.Echo TypeName(p), p
Set p = New Plain
keep.Value = 7
p = keep
WScript.Echo TypeName(p), p
Set p = New Plain
Fill p
WScript.Echo p
' Using Nothing as a value fails with 91 and leaves the variable as it was.
On Error Resume Next
p = 1
p = Nothing
WScript.Echo Err.Number, p
' expect: Integer 5 Box
' expect: String text!
' expect: Integer 7
' expect: via parameter
' expect: 91 1
