' A builtin called with too few or too many arguments is 450, at the call, with its name.
On Error Resume Next
x = Len("a", "b")
WScript.Echo Err.Number ' expect: 450
Err.Clear
x = Mid("abc")
WScript.Echo Err.Description ' expect: Wrong number of arguments or invalid property assignment: 'Mid'
Err.Clear
x = DateAdd("d", 1)
WScript.Echo Err.Number ' expect: 450
Err.Clear
x = Replace("a", "b", "c", 1, 1, 0, 9)
WScript.Echo Err.Number ' expect: 450
Err.Clear
Set d = CreateObject("Scripting.Dictionary")
d.Add "only the key"
WScript.Echo Err.Number ' expect: 450
Err.Clear
x = Now(1)
WScript.Echo Err.Number ' expect: 450
On Error GoTo 0
WScript.Echo "stops here" ' expect: stops here
x = Left("abc") ' expect runtime error 450 line 23
