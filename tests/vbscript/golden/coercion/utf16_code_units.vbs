Dim s
s = "a" & ChrW(&HD83D) & ChrW(&HDE00) & "b"
WScript.Echo Len(s), AscW(Mid(s, 2, 1)) = &HD83D, Len("😀")
' expect: 4 True 2
