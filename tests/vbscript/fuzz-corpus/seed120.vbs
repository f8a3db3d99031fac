Dim i, s
For i = 10 To 1 Step -3
    s = s & i & " "
Next
WScript.Echo s
s = ""
For i = 0 To 1 Step 0.25
    s = s & i & " "
Next
WScript.Echo s
For i = 1 To 0
    WScript.Echo "never"
Next
WScript.Echo i
' expect: 10 7 4 1 
' expect: 0 0.25 0.5 0.75 1 
' expect: 1
