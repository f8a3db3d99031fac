Sub Show(a, b)
    WScript.Echo a & "-" & b
End Sub
Sub One(a)
    WScript.Echo "one " & a
End Sub
Show 1, 2
Call Show(3, 4)
One(5)
One (6)
Call One(7)
' expect: 1-2
' expect: 3-4
' expect: one 5
' expect: one 6
' expect: one 7
