Dim x
x = 5
WScript.Echo Eval("x * 2 + 1")
Execute "x = x + 1"
WScript.Echo x
ExecuteGlobal "Function Added(a) : Added = a + 100 : End Function"
WScript.Echo Added(1)
Function UsesLocal()
    Dim y
    y = 7
    UsesLocal = Eval("y * 3")
    Execute "y = 1"
    UsesLocal = UsesLocal & " " & y
End Function
WScript.Echo UsesLocal()
WScript.Echo Eval("1 = 1")
' expect: 11
' expect: 6
' expect: 101
' expect: 21 1
' expect: True
