' Compile errors keep the line of the offending token.
Dim total
total = 1 + _
        2 + _
        * 3
' expect compile error 1002 line 5
