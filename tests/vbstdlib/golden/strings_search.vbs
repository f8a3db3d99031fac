' InStr, InStrRev and StrComp: start positions, compare modes, Null and empty strings.
WScript.Echo InStr("abcabc", "c") ' expect: 3
WScript.Echo InStr(4, "abcabc", "c") ' expect: 6
WScript.Echo InStr(1, "ABC", "b") ' expect: 0
WScript.Echo InStr(1, "ABC", "b", vbTextCompare) ' expect: 2
WScript.Echo InStr(2, "abc", "") ' expect: 2
WScript.Echo InStr("", "a") ' expect: 0
WScript.Echo InStr(9, "abc", "a") & InStr(3, "abc", "c") & InStr("ab", "abc") ' expect: 030
WScript.Echo InStr(1, "x" & ChrW(201) & "y", ChrW(233), vbTextCompare) ' expect: 2
WScript.Echo IsNull(InStr("abc", Null)) ' expect: True
WScript.Echo IsNull(InStr(Null, "a")) ' expect: True
WScript.Echo TypeName(InStr("abc", "b")) ' expect: Long
WScript.Echo InStrRev("abcabc", "b") ' expect: 5
WScript.Echo InStrRev("abcabc", "b", 4) ' expect: 2
WScript.Echo InStrRev("ABCABC", "b", -1, 1) ' expect: 5
WScript.Echo InStrRev("abcabc", "bc", 5) & InStrRev("abc", "c", 2) & InStrRev("abc", "", 2) & InStrRev("abc", "a", 7) ' expect: 2020
WScript.Echo InStrB("ab", "b") ' expect: 3
WScript.Echo StrComp("a", "B") ' expect: 1
WScript.Echo StrComp("a", "B", vbTextCompare) ' expect: -1
WScript.Echo StrComp("abc", "ABC", 1) & StrComp("ab", "abc") & StrComp("", "") & StrComp(ChrW(233), ChrW(201), 1) ' expect: 0-100
WScript.Echo IsNull(StrComp(Null, "a")) ' expect: True
