Dim buf()
Sub Grow(n)
    ReDim Preserve buf(n)
    buf(n) = n
End Sub
ReDim buf(0)
Grow 3
WScript.Echo UBound(buf), buf(3)
' expect: 3 3
