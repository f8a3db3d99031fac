Class Validator
    Public Sub Check(v)
        If v < 0 Then Err.Raise 1001 + 31999, "Validator", "negative"
    End Sub
End Class
Dim val
Set val = New Validator
On Error Resume Next
val.Check 5
WScript.Echo Err.Number
val.Check -1
WScript.Echo Err.Number, Err.Source, Err.Description
' expect: 0
' expect: 33000 Validator negative
