' A Dim in code Execute'd inside a procedure makes a local of that procedure.
Sub P()
    Execute "Dim q : q = 5"
    Execute "q = q + 1"
    WScript.Echo Eval("q")
End Sub
P
WScript.Echo TypeName(q), IsEmpty(q)
' expect: 6
' expect: Empty True
