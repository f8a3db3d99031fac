' Scripting.Dictionary: Add, Item (default), Exists, Remove, Keys, Items, Key, CompareMode, For Each.
Set d = CreateObject("Scripting.Dictionary")
d.Add "b", 2
d.Add "a", 1
d("c") = 3
WScript.Echo d.Count & " " & d("a") & " " & d.Item("c") ' expect: 3 1 3
WScript.Echo d.Exists("b") & " " & d.Exists("B") ' expect: True False
For Each k In d
    WScript.Echo k & "=" & d(k) ' expect: b=2
Next ' expect: a=1
' expect: c=3
WScript.Echo Join(d.Keys, ",") & " " & Join(d.Items, ",") ' expect: b,a,c 2,1,3
d.Key("b") = "z"
d.Remove "a"
WScript.Echo Join(d.Keys, ",") ' expect: z,c
WScript.Echo IsEmpty(d("missing")) & " " & d.Count ' expect: True 3
d.Add 1, "one"
WScript.Echo d(1) & " " & d.Exists("1") ' expect: one False
Set e = CreateObject("Scripting.Dictionary")
e.CompareMode = vbTextCompare
e.Add "Key", "v"
WScript.Echo e.Exists("KEY") ' expect: True
d.RemoveAll
WScript.Echo d.Count ' expect: 0
On Error Resume Next
e.Add "key", 2
WScript.Echo Err.Number & " " & Err.Description ' expect: 457 This key is already associated with an element of this collection
Err.Clear
e.Remove "nope"
WScript.Echo Err.Number & " " & Err.Description ' expect: 32811 Element not found
Err.Clear
e.CompareMode = 0
WScript.Echo Err.Number ' expect: 5
