Dim e
WScript.Echo e = 0, e = "", IsEmpty(e), TypeName(e)
WScript.Echo e + 5, "[" & e & "]", Len(e)
' expect: True True True Empty
' expect: 5 [] 0
