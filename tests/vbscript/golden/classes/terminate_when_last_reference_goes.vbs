' Class_Terminate runs when the last reference goes, including when Set replaces an object.
Class T
    Public name
    Private Sub Class_Terminate()
        WScript.Echo "bye " & name
    End Sub
End Class
Dim x, y
Set x = New T
x.name = "x"
Set y = x
Set x = Nothing
WScript.Echo "after x"
Set y = Nothing
WScript.Echo "after y"
Set x = New T
x.name = "first"
Set x = New T
x.name = "second"
WScript.Echo "end"
' expect: after x
' expect: bye x
' expect: after y
' expect: bye first
' expect: end
' expect: bye second
