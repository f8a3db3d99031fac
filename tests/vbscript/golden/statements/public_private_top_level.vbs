Public shown
Private hidden
shown = 1 : hidden = 2
Private Function Helper()
    Helper = shown + hidden
End Function
Public Sub Go()
    WScript.Echo Helper()
End Sub
Go
' expect: 3
