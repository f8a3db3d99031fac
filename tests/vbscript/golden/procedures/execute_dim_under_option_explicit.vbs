' Under Option Explicit an Execute'd Dim declares the local; an undeclared name is error 500.
Option Explicit
Sub P()
    Execute "Dim q : q = 3"
    WScript.Echo Eval("q")
    Execute "q = q + 1"
    WScript.Echo Eval("q")
    Execute "zz = 1"
End Sub
P
' expect: 3
' expect: 4
' expect runtime error 500 line 8
