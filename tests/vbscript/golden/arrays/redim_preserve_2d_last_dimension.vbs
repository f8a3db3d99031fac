Dim m()
ReDim m(1, 1)
m(0, 0) = "a" : m(1, 0) = "b" : m(0, 1) = "c" : m(1, 1) = "d"
ReDim Preserve m(1, 2)
m(1, 2) = "f"
WScript.Echo m(0, 0) & m(1, 0) & m(0, 1) & m(1, 1) & "[" & m(0, 2) & "]" & m(1, 2), UBound(m, 2)
' expect: abcd[]f 2
