' Negating a literal keeps its type: -32768 is a Long, since 32768 is one.
' Integer, Long, Double, hex and octal literals and their subtypes.
WScript.Echo TypeName(1), TypeName(32767), TypeName(32768), TypeName(2147483648)
WScript.Echo &HFF, &HFFFF, &H10000, &O17, &17
WScript.Echo TypeName(&HFFFF), TypeName(&H10000), -32768, TypeName(-32768)
WScript.Echo 1.5, .5, 1e3, 1.5E-7, 2.5e+2
' expect: Integer Integer Long Double
' expect: 255 -1 65536 15 15
' expect: Integer Long -32768 Long
' expect: 1.5 0.5 1000 1.5E-07 250
