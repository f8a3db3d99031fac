' Undeclared names assigned by code Execute'd in a procedure are locals of that call, unless a
' global of that name exists.
Sub P()
    Execute "y = 1"
    Execute "y = y + 1"
    WScript.Echo Eval("y")
End Sub
P
P
WScript.Echo IsEmpty(y)
Dim g
Sub Q()
    Execute "g = 5"
End Sub
Q
WScript.Echo g
' expect: 2
' expect: 2
' expect: True
' expect: 5
