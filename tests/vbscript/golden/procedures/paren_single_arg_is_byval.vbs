Sub Bump(n)
    n = n + 10
End Sub
Dim v
v = 1
Bump(v)
WScript.Echo v
Bump v
WScript.Echo v
' expect: 1
' expect: 11
