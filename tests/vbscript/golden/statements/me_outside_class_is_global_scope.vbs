' Outside a class Me is the script's global scope: its members are the global variables and
' procedures.
Dim x
Sub Hello(who)
    WScript.Echo "hello " & who
End Sub
Me.x = 1
Me.Hello "me"
WScript.Echo Me.x + 1, Me Is Me, TypeName(Me)
' expect: hello me
' expect: 2 True Object
