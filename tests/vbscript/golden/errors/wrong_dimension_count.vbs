Dim a(2, 2)
WScript.Echo a(1)
' expect runtime error 9 line 2
