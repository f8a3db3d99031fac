Dim i
For i = 1 To 3
Next
WScript.Echo i
For i = 1 To 10
    If i = 4 Then Exit For
Next
WScript.Echo i
' expect: 4
' expect: 4
