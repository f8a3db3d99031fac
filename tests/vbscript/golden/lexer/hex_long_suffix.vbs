' A trailing "&" reads a hex or octal literal as 32 bits (&HFFFF& is 65535, not -1); the literal
' is still an Integer when its value fits one.
WScript.Echo &HFF&, TypeName(&HFF&), &O17&, TypeName(&O17&)
WScript.Echo &HFFFF&, TypeName(&HFFFF&), &H8000&, TypeName(&H8000&)
WScript.Echo &HFFFFFFFF&, TypeName(&HFFFFFFFF&), TypeName(-&HFF&)
' expect: 255 Integer 15 Integer
' expect: 65535 Long 32768 Long
' expect: -1 Integer Integer
