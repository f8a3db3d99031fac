Class Tracer
    Private Sub Class_Initialize()
        WScript.Echo "init"
    End Sub
    Private Sub Class_Terminate()
        WScript.Echo "terminate"
    End Sub
End Class
Sub UseOne()
    Dim t
    Set t = New Tracer
    WScript.Echo "using"
End Sub
UseOne
WScript.Echo "after"
Dim k
Set k = New Tracer
Set k = Nothing
WScript.Echo "end"
' expect: init
' expect: using
' expect: terminate
' expect: after
' expect: init
' expect: terminate
' expect: end
