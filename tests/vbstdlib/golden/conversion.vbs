' The C* conversions: banker's rounding, overflow, type mismatch, Null; Hex and Oct of negatives.
WScript.Echo CInt("3.5") ' expect: 4
WScript.Echo CLng("1e3") ' expect: 1000
WScript.Echo CLng(" 12 ") ' expect: 12
WScript.Echo TypeName(CByte(200)) ' expect: Byte
WScript.Echo CCur(1.23456) ' expect: 1.2346
WScript.Echo TypeName(CCur(1)) ' expect: Currency
WScript.Echo CDbl("1,234.5") ' expect: 1234.5
WScript.Echo CSng(1.5) ' expect: 1.5
WScript.Echo CBool("True") & " " & CBool(0) & " " & CBool(-3) ' expect: True False True
WScript.Echo CBool("#TRUE#") & " " & CBool("#false#") & " " & (Not "#FALSE#") ' expect: True False True
WScript.Echo CStr(1.5) & CStr(True) ' expect: 1.5True
WScript.Echo CDate("1/2/2003") ' expect: 1/2/2003
WScript.Echo CDate(37623.5) ' expect: 1/2/2003 12:00:00 PM
WScript.Echo Hex(255) ' expect: FF
WScript.Echo Hex(-1) ' expect: FFFF
WScript.Echo Hex(-32768) & " " & Hex(-32767) ' expect: FFFF8000 8001
WScript.Echo Hex(-32769) ' expect: FFFF7FFF
WScript.Echo Hex(CLng(-1)) ' expect: FFFFFFFF
WScript.Echo Hex(2147483647) ' expect: 7FFFFFFF
WScript.Echo Hex(2.5) ' expect: 2
WScript.Echo Hex(Empty) ' expect: 0
WScript.Echo IsNull(Hex(Null)) ' expect: True
WScript.Echo Oct(8) ' expect: 10
WScript.Echo Oct(-1) ' expect: 177777
WScript.Echo Oct(-40000) ' expect: 37777661700
On Error Resume Next
x = CInt(32768)
WScript.Echo Err.Number & " " & Err.Description ' expect: 6 Overflow
Err.Clear
x = CLng("abc")
WScript.Echo Err.Number & " " & Err.Description ' expect: 13 Type mismatch
