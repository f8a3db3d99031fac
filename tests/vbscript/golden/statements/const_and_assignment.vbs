Const Pi = 3.14159, Greeting = "hi"
Dim r
r = 2
WScript.Echo Pi * r * r, Greeting
Let r = 5
WScript.Echo r
' expect: 12.56636 hi
' expect: 5
