Dim o
Set o = Nothing : WScript.Echo o.Name
' expect runtime error 91 line 2
