' Against a number literal a string is read as a number; text that reads as no number is simply
' not equal to it (and sorts after it) rather than a Type mismatch, and Select Case compares the
' same way.
WScript.Echo "abc" = -5, "abc" <> 5, "abc" > 5, "42" = 42
Select Case 3
    Case "three" : WScript.Echo "no"
    Case 3 : WScript.Echo "number"
End Select
' expect: False True True True
' expect: number
