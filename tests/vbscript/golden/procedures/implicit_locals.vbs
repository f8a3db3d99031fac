Sub MakeLocal()
    temp = 5
End Sub
MakeLocal
WScript.Echo IsEmpty(temp)
Dim shared
Sub UseGlobal()
    shared = "set"
End Sub
UseGlobal
WScript.Echo shared
' expect: True
' expect: set
