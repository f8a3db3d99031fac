Dim [my var], [End]
[my var] = 3
[End] = 4
WScript.Echo [my var] + [End]
' expect: 7
