Dim g
g = "global"
Function Outer(n)
    Dim g
    g = "local"
    Outer = Inner(n) & " " & g
End Function
Function Inner(n)
    Inner = n * 2 & " " & g
End Function
WScript.Echo Outer(5)
WScript.Echo g
' expect: 10 global local
' expect: global
