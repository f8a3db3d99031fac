Dim depth
Function Down(n)
    depth = n
    Down = Down(n + 1)
End Function
On Error Resume Next
Down 1
WScript.Echo Err.Number, depth > 1000
' expect: 28 True
