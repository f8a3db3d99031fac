' ExecuteGlobal inside a procedure still declares globals.
Sub P()
    ExecuteGlobal "Dim g : g = 7"
End Sub
P
WScript.Echo g, TypeName(g)
' expect: 7 Integer
