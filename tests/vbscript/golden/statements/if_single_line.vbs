Dim a
a = 5
If a > 3 Then WScript.Echo "big" Else WScript.Echo "small"
If a > 9 Then WScript.Echo "huge" Else WScript.Echo "not huge" : WScript.Echo "still else"
If a = 5 Then WScript.Echo "x" : WScript.Echo "y"
If a = 0 Then WScript.Echo "no"
' expect: big
' expect: not huge
' expect: still else
' expect: x
' expect: y
