' A variable holding Nothing simply takes the new value.
Dim n
Set n = Nothing
n = 4
WScript.Echo TypeName(n), n
' expect: Integer 4
