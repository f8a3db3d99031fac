Dim s
s = "héllo"
WScript.Echo Len(s), UCase(s)
' expect: 5 HÉLLO
