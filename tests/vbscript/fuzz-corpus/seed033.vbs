WScript.Echo " 12 " + 1, "&H1F" + 0, "1e3" * 1, "1,000" + 1
' expect: 13 31 1000 1001
