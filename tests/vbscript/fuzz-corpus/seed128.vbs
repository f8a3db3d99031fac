Randomize 5
Dim a
a = Rnd
WScript.Echo a >= 0 And a < 1
' expect: True
