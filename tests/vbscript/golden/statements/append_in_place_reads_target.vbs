Dim s, t
s = "ab"
s = s & "-" & s
WScript.Echo s
t = s
s = s & "!"
WScript.Echo s, t
s = 5
s = s & "x" & Null & 1
WScript.Echo s
' expect: ab-ab
' expect: ab-ab! ab-ab
' expect: 5x1
