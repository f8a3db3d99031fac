' Without the suffix: 16-bit patterns are Integers (two's complement), wider ones Longs.
WScript.Echo &HFFFF, TypeName(&HFFFF), &H8000, TypeName(&H8000)
WScript.Echo &H7FFF, TypeName(&H7FFF), &H10000, TypeName(&H10000)
WScript.Echo &HFFFFFFFF, &O177777, TypeName(&O177777)
' expect: -1 Integer -32768 Integer
' expect: 32767 Integer 65536 Long
' expect: -1 -1 Integer
