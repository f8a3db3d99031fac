' ReDim Preserve can shrink the last dimension but not change how many dimensions there are.
Dim a()
ReDim a(2, 3)
a(1, 1) = "kept"
ReDim Preserve a(2, 1)
WScript.Echo UBound(a, 2), a(1, 1)
ReDim Preserve a(2)
' expect: 1 kept
' expect runtime error 9 line 7
