' A member of Nothing is an Object required error (424), read or written; 91 is for using
' Nothing itself as a value.
Class Kay
    Public V
End Class
Dim k, n
Set k = New Kay
Set k = Nothing
On Error Resume Next
n = k.V
WScript.Echo Err.Number
Err.Clear
k.V = 1
WScript.Echo Err.Number
Err.Clear
n = "" & k
WScript.Echo Err.Number
On Error GoTo 0
k.Run
' expect: 424
' expect: 424
' expect: 91
' expect runtime error 424 line 19
