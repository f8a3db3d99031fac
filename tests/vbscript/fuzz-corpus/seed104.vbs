Function Nothing1()
End Function
WScript.Echo IsEmpty(Nothing1()), TypeName(Nothing1)
' expect: True Empty
