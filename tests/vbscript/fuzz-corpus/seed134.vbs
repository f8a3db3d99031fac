Dim i
i = 0
While i < 5
    i = i + 2
Wend
WScript.Echo i
' expect: 6
