Dim a(1), b
WScript.Echo TypeName(a), IsArray(a), IsArray(b), VarType(a)
' expect: Variant() True False 8204
