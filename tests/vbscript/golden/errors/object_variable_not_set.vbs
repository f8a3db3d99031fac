Dim o
Set o = Nothing : WScript.Echo o + 1
' expect runtime error 91 line 2
