' New RegExp: the class name is known to the language like a script class.
Set re = New RegExp
re.Pattern = "^\d+$"
WScript.Echo TypeName(re) & " " & re.Test("2003") ' expect: IRegExp2 True
Set re2 = New regexp
WScript.Echo re2.Test("") ' expect: True
' A script class of the same name does not replace it for New.
Class RegExp
    Public Property Get Global() : Global = "script class" : End Property
End Class
WScript.Echo (New RegExp).Global ' expect: False
