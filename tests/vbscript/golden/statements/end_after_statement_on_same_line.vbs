' "End Sub", "End Function", "End Property", "End Class" and "End If" may follow a statement on
' its line without a colon, also right after ")" and several on one line; a procedure's body may
' start right after its parameter list; a one-line If may end with "End If"; a Case label may
' carry its first statement.
Sub Greet(who) WScript.Echo "hi " & who End Sub
Function Twice(n)
    Twice = n * 2 End Function
Class Bare
    Public v End Class
Class Holder
    Private m
    Public Property Get Value() Value = m End Property
    Public Property Let Value(x) m = x End Property
    Sub Show()
        WScript.Echo(m)End Sub End Class
Function Kind(n)
    Select Case n
        Case 1 Kind = "one"
        Case 2, 3 Kind = "few"
        Case Else Kind = "many"
    End Select
End Function
Dim h, r
Greet "you"
Set h = New Holder
h.Value = Twice(21)
h.Show
If h.Value > 40 Then r = "big" Else r = "small" End If
If True Then WScript.Echo r End If
WScript.Echo Kind(1), Kind(3), Kind(9)
' expect: hi you
' expect: 42
' expect: big
' expect: one few many
