' Code that runs itself through Execute, ExecuteGlobal or Eval ends like procedure recursion.
Dim s, e, x
s = "ExecuteGlobal s"
e = "Eval(e)"
x = "Execute x"
On Error Resume Next
ExecuteGlobal s
WScript.Echo Err.Number
Err.Clear
y = Eval(e)
WScript.Echo Err.Number
Err.Clear
Execute x
WScript.Echo Err.Number
On Error GoTo 0
y = Eval(e)
' expect: 28
' expect: 28
' expect: 28
' expect runtime error 28 line 16
