' For Each walks the array as it was when the loop began; the loop variable is a copy.
Dim arr, x, s
arr = Array(1, 2, 3)
For Each x In arr
    ReDim Preserve arr(5)
    arr(1) = 20
    x = 0
    s = s & x
Next
WScript.Echo s, UBound(arr), arr(1), arr(2)
s = ""
arr = Array(1, 2, 3)
For Each x In arr
    s = s & x
    arr = Array(9)
Next
WScript.Echo s, UBound(arr)
' expect: 000 5 20 3
' expect: 123 0
