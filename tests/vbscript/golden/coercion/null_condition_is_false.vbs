' Null as a condition is False (no error 94) in If, Do While and While.
Dim n
n = Null
If Null Then WScript.Echo "yes" Else WScript.Echo "no"
If Not n Then WScript.Echo "yes" Else WScript.Echo "no"
If n = 1 Then WScript.Echo "eq" Else WScript.Echo "not eq"
Do While n
    WScript.Echo "loop"
Loop
While Null
    WScript.Echo "wend"
Wend
Do Until n
    WScript.Echo "until"
    Exit Do
Loop
' expect: no
' expect: no
' expect: not eq
' expect: until
