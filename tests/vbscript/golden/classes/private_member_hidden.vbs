Class Secret
    Private hidden
End Class
Dim s
Set s = New Secret
WScript.Echo s.hidden
' expect runtime error 438 line 6
