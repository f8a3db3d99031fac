' Asc, Chr and their byte and wide forms (Windows-1252 for the narrow ones), Escape, Unescape.
WScript.Echo Asc("A") ' expect: 65
WScript.Echo Asc("€") ' expect: 128
WScript.Echo AscW("€") ' expect: 8364
WScript.Echo AscW(ChrW(&HFFFF)) ' expect: -1
WScript.Echo AscB("A") ' expect: 65
WScript.Echo Chr(65) & Chr(128) ' expect: A€
WScript.Echo ChrW(233) ' expect: é
WScript.Echo ChrW(-1) = ChrW(65535) ' expect: True
WScript.Echo Len(ChrB(65)) ' expect: 1
WScript.Echo Escape("a b+é€") ' expect: a%20b+%E9%u20AC
WScript.Echo Unescape("a%20b+%E9%u20AC") ' expect: a b+é€
WScript.Echo Unescape("%zz") ' expect: %zz
