Dim i
i = 0
Do While i < 3
    i = i + 1
Loop
WScript.Echo i
Do Until i = 0
    i = i - 1
Loop
WScript.Echo i
Do
    i = i + 2
Loop While i < 5
WScript.Echo i
Do
    i = i + 1
Loop Until i >= 10
WScript.Echo i
Do
    i = i + 1
    If i > 12 Then Exit Do
Loop
WScript.Echo i
i = 100
Do
    i = i + 1
Loop While False
WScript.Echo i
' expect: 3
' expect: 0
' expect: 6
' expect: 10
' expect: 13
' expect: 101
