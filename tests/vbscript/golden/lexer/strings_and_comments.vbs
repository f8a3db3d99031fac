Dim s ' a comment
s = "say ""hi""" : WScript.Echo s
Rem a Rem comment
WScript.Echo "a'b" ' quote inside a string is not a comment
WScript.Echo "" = Empty
' expect: say "hi"
' expect: a'b
' expect: True
