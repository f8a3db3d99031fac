Class Thing
End Class
Dim a, b, c
Set a = New Thing
Set b = a
Set c = New Thing
WScript.Echo a Is b, a Is c, a Is Nothing, Nothing Is Nothing
WScript.Echo IsObject(a), TypeName(Nothing), IsObject(5)
' expect: True False False True
' expect: True Nothing False
