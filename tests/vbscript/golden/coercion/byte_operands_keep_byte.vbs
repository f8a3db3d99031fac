' Two Bytes give a Byte for \, Mod and the bitwise operators; with a wider type they widen.
Dim b1, b2
b1 = CByte(200)
b2 = CByte(3)
WScript.Echo b1 \ b2, TypeName(b1 \ b2), b1 Mod b2, TypeName(b1 Mod b2)
WScript.Echo TypeName(b1 And b2), CByte(5) Eqv CByte(3), CByte(5) Imp CByte(3)
WScript.Echo TypeName(b1 \ 1), TypeName(b1 Or 1), TypeName(True \ True)
' expect: 66 Byte 2 Byte
' expect: Byte 249 251
' expect: Integer Integer Integer
