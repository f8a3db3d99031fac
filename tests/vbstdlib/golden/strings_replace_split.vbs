' Replace (start cuts the result, count, compare), Split (limit, compare), Join, Filter.
WScript.Echo Replace("abcabc", "b", "X") ' expect: aXcaXc
WScript.Echo Replace("abcabc", "b", "X", 3) ' expect: caXc
WScript.Echo Replace("abcabc", "b", "X", 1, 1) ' expect: aXcabc
WScript.Echo Replace("ABCabc", "b", "X", 1, -1, vbTextCompare) ' expect: AXCaXc
WScript.Echo Replace("ABCabc", "b", "X") ' expect: ABCaXc
WScript.Echo "[" & Replace("abc", "b", "X", 9) & "]" ' expect: []
WScript.Echo Replace("abc", "", "X") & "," & Replace("abc", "", "X", 2) & "," & Replace("aaaa", "aa", "a") & "," & Replace("abc", "abc", "") & "," & Replace("abab", "b", "X", 1, 0) ' expect: abc,bc,aa,,abab
a = Split("a,b,c", ",")
WScript.Echo UBound(a) & " " & a(0) & a(2) ' expect: 2 ac
a = Split("a,b,c", ",", 2)
WScript.Echo UBound(a) & " " & a(1) ' expect: 1 b,c
a = Split("aXbxc", "x", -1, vbTextCompare)
WScript.Echo Join(a, "|") ' expect: a|b|c
a = Split("aXbxc", "x")
WScript.Echo Join(a, "|") ' expect: aXb|c
a = Split("")
WScript.Echo UBound(a) ' expect: -1
WScript.Echo UBound(Split("a,b", ",", 1)) & UBound(Split("a,b", ",", 0)) & UBound(Split("a,b", "")) ' expect: 0-10
WScript.Echo Join(Split("a,,b,", ","), "|") & " " & Join(Split("a  b", " "), "|") ' expect: a||b| a||b
a = Split("one two")
WScript.Echo a(1) ' expect: two
WScript.Echo TypeName(Split("x")) ' expect: Variant()
WScript.Echo Join(Array(1, "b", True)) ' expect: 1 b True
WScript.Echo Join(Array(), ",") & "." ' expect: .
WScript.Echo Join(Filter(Array("Apple", "banana", "cherry"), "an"), ",") ' expect: banana
WScript.Echo Join(Filter(Array("Apple", "banana", "cherry"), "a", False), ",") ' expect: Apple,cherry
WScript.Echo Join(Filter(Array("Apple", "banana", "cherry"), "a"), ",") ' expect: banana
WScript.Echo Join(Filter(Array("Apple", "banana"), "A", True, vbTextCompare), ",") ' expect: Apple,banana
