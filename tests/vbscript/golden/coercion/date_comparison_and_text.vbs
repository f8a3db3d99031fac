Dim d1, d2
d1 = #1/2/2026#
d2 = #12/31/2025 11:00:00 PM#
WScript.Echo d1 > d2, d2, CStr(#3:04:05 AM#)
' expect: True 12/31/2025 11:00:00 PM 3:04:05 AM
