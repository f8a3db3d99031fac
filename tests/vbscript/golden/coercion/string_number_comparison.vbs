Dim n, s
n = 10
WScript.Echo "42" = 42, 42 = "42"
WScript.Echo n > "9"
s = "9"
WScript.Echo 10 > s
WScript.Echo n = "10"
' expect: True True
' expect: False
' expect: True
' expect: True
