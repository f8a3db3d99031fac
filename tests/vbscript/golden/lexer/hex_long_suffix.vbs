' A trailing "&" makes a hex or octal literal a Long whatever its value.
WScript.Echo &HFF&, TypeName(&HFF&), &O17&, TypeName(&O17&)
WScript.Echo &HFFFF&, TypeName(&HFFFF&), &H8000&, TypeName(&H8000&)
Const big = &HFFFF&
WScript.Echo big + 1, TypeName(-&HFF&)
' expect: 255 Long 15 Long
' expect: 65535 Long 32768 Long
' expect: 65536 Long
