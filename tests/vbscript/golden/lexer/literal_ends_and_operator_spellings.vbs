' A hex or octal literal ends at its first non-digit, so a keyword may follow it with no blank;
' "&" before a name that cannot start a literal is concatenation; =>, =< and >< are accepted
' spellings of >=, <= and <>.
Dim hi, x
WScript.Echo &h01or&h02, &hF0Or&h0F, &o7Xor&o1
hi = "y"
x = "x" &hi
WScript.Echo x
WScript.Echo 2 => 2, 1 =< 0, 2 >< 1
' expect: 3 255 6
' expect: xy
' expect: True False True
