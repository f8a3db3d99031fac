Dim d
d = #1/2/2026#
WScript.Echo d, TypeName(d)
WScript.Echo #1/2/2026 3:04:05 PM#
WScript.Echo #15:30#
' expect: 1/2/2026 Date
' expect: 1/2/2026 3:04:05 PM
' expect: 3:30:00 PM
