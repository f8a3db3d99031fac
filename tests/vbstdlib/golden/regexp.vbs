' RegExp: the flags, Test, Execute's Matches/Match/SubMatches, Replace with $n, $& and $$.
Set re = CreateObject("VBScript.RegExp")
re.Pattern = "(\w+)_(\d+)\.jpg"
re.IgnoreCase = True
re.Global = True
WScript.Echo re.Test("IMG_0042.JPG") ' expect: True
Set matches = re.Execute("a_1.jpg, b_22.JPG and c.jpg")
WScript.Echo matches.Count ' expect: 2
For Each m In matches
    WScript.Echo m.FirstIndex & " " & m.Length & " " & m.Value & " " & m.SubMatches(1) ' expect: 0 7 a_1.jpg 1
Next ' expect: 9 8 b_22.JPG 22
WScript.Echo matches(1).SubMatches.Count ' expect: 2
WScript.Echo matches.Item(0) ' expect: a_1.jpg
For Each s In matches(1).SubMatches
    WScript.Echo s ' expect: b
Next ' expect: 22
WScript.Echo re.Replace("a_1.jpg b_22.jpg", "$2-$1") ' expect: 1-a 22-b
WScript.Echo re.Replace("a_1.jpg", "[$&] $$") ' expect: [a_1.jpg] $
re.Global = False
WScript.Echo re.Replace("a_1.jpg b_22.jpg", "x") ' expect: x b_22.jpg
Set re2 = CreateObject("VBScript.RegExp")
re2.Pattern = "^b"
WScript.Echo re2.Test("a" & vbLf & "b") ' expect: False
re2.Multiline = True
WScript.Echo re2.Test("a" & vbLf & "b") ' expect: True
WScript.Echo TypeName(re2) ' expect: IRegExp2
re2.Pattern = "(a)|(b)"
Set m = re2.Execute("b")(0)
WScript.Echo IsEmpty(m.SubMatches(0)) & " " & m.SubMatches(1) ' expect: True b
re2.Pattern = "a(b"
On Error Resume Next
x = re2.Test("ab")
WScript.Echo Err.Number & " " & Err.Description ' expect: 5017 Syntax error in regular expression
Err.Clear
' The pattern reads back; IgnoreCase starts off; a mended pattern works; Test needs its text.
re2.Pattern = "a(b)"
WScript.Echo re2.Pattern & " " & re2.IgnoreCase & " " & re2.Test("ab") ' expect: a(b) False True
x = re2.Test()
WScript.Echo Err.Number ' expect: 450
Err.Clear
Set all = re.Execute("a_1.jpg b_2.jpg")
WScript.Echo TypeName(all) & " " & all.Count ' expect: IMatchCollection2 1
x = all.Item(1)
WScript.Echo Err.Number ' expect: 5
