Class Res
    Public Property Get Kind()
        Kind = "early"
        Exit Property
        Kind = "late"
    End Property
    Private Sub Class_Terminate()
        WScript.Echo "released at end"
    End Sub
End Class
Dim r
Set r = New Res
WScript.Echo r.Kind
' expect: early
' expect: released at end
