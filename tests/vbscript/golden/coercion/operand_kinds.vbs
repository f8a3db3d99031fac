' Booleans, Empty, dates and objects with a default property as operands.
Class V
    Public Default Property Get Value
        Value = 5
    End Property
End Class
Dim e, o, d1, d2
Set o = New V
WScript.Echo True + True, TypeName(True + 1), -True, True = -1
WScript.Echo e = 0, e = "", IsEmpty(e), TypeName(e)
WScript.Echo e + 5, "[" & e & "]", Len(e)
WScript.Echo o + 1, o * 2, o = 5
d1 = #1/2/2026#
d2 = #12/31/2025 11:00:00 PM#
WScript.Echo d1 > d2, d2, CStr(#3:04:05 AM#)
WScript.Echo #1/31/2026# + 1, TypeName(#1/31/2026# + 1), #1/3/2026# - #1/1/2026#
' expect: -2 Integer 1 True
' expect: True True True Empty
' expect: 5 [] 0
' expect: 6 10 True
' expect: True 12/31/2025 11:00:00 PM 3:04:05 AM
' expect: 2/1/2026 Date 2
