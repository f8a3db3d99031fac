Dim n
For n = 1 To 4
    If n = 1 Then
        WScript.Echo "one"
    ElseIf n = 2 Then
        WScript.Echo "two"
    ElseIf n = 3 Then
        WScript.Echo "three"
    Else
        WScript.Echo "other"
    End If
Next
' expect: one
' expect: two
' expect: three
' expect: other
