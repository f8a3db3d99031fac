Dim s
s = "hello world"
Mid(s, 1, 5) = "HELLO"
WScript.Echo s, Mid(s, 2, 3)
Mid(s, 7) = "WORLD!!!"
WScript.Echo s
Mid(s, 1, 2) = "x"
WScript.Echo s
' expect: HELLO world ELL
' expect: HELLO WORLD
' expect: xELLO WORLD
