' Without Option Compare, comparison is by code unit: lower case sorts after upper case.
WScript.Echo "a" < "B", "Z" < "a", StrComp("a", "B"), StrComp("A", "a"), "a" > "B"
WScript.Echo "abc" < "abd", "" < "a", "A" = "a"
Select Case "b"
    Case "B": WScript.Echo "upper"
    Case "b": WScript.Echo "lower"
End Select
' Against a number literal a string is read as a number; text that reads as no number is simply
' not equal to it (and sorts after it) rather than a Type mismatch, and Select Case compares the
' same way. Against a variable the number is compared as text.
Dim n, s
n = 10
s = "9"
WScript.Echo "42" = 42, 42 = "42", "abc" = -5, "abc" <> 5, "abc" > 5
WScript.Echo n > "9", 10 > s, n = "10"
Select Case 3
    Case "three" : WScript.Echo "no"
    Case 3 : WScript.Echo "number"
End Select
WScript.Echo " 12 " + 1, "&H1F" + 0, "1e3" * 1, "1,000" + 1
' Strings are UTF-16 code units.
s = "a" & ChrW(&HD83D) & ChrW(&HDE00) & "b"
WScript.Echo Len(s), AscW(Mid(s, 2, 1)) = &HD83D, Len("😀"), Len("héllo"), UCase("héllo")
' expect: False True 1 -1 True
' expect: True True False
' expect: lower
' expect: True True False True True
' expect: False True True
' expect: number
' expect: 13 31 1000 1001
' expect: 4 True 2 5 HÉLLO
