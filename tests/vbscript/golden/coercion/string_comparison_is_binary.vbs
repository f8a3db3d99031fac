' Without Option Compare, comparison is by code unit: lower case sorts after upper case.
WScript.Echo "a" < "B", "Z" < "a", StrComp("a", "B"), StrComp("A", "a"), "a" > "B"
Select Case "b"
    Case "B": WScript.Echo "upper"
    Case "b": WScript.Echo "lower"
End Select
' expect: False True 1 -1 True
' expect: lower
