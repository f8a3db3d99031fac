Dim d
d = #1/31/2026#
WScript.Echo d + 1, TypeName(d + 1)
WScript.Echo #1/3/2026# - #1/1/2026#
' expect: 2/1/2026 Date
' expect: 2
