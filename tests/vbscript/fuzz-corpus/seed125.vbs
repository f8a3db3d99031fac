Option Explicit
Dim a
a = 1
WScript.Echo a
b = 2
' expect: 1
' expect runtime error 500 line 5
