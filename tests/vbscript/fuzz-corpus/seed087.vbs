Dim total
total = 1 + _
        2 + _
        3
WScript.Echo total : WScript.Echo "two" : WScript.Echo "three"
' expect: 6
' expect: two
' expect: three
