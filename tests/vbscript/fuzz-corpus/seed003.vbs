Dim a(2), m(1, 2), i, j
a(0) = "x" : a(2) = "z"
For i = 0 To 1
    For j = 0 To 2
        m(i, j) = i * 10 + j
    Next
Next
WScript.Echo a(0) & a(1) & a(2), UBound(a), UBound(m, 1), UBound(m, 2), m(1, 2)
' expect: xz 2 1 2 12
