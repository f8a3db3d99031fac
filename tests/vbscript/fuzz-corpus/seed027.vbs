Dim n
n = Null
WScript.Echo IsNull(n + 1), IsNull(n & Null), "a" & n & "b"
WScript.Echo IsNull(n = 1), IsNull(Not n)
WScript.Echo n And False, IsNull(n And True), n Or True, IsNull(n Or False)
If n Then WScript.Echo "never" Else WScript.Echo "null is not true"
' expect: True True ab
' expect: True True
' expect: False True True True
' expect: null is not true
