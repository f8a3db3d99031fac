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
WScript.Echo e.Exists("KEY") & " " & e.CompareMode ' expect: True 1
d.RemoveAll
WScript.Echo d.Count & " " & UBound(d.Keys) ' expect: 0 -1
On Error Resume Next
e.Add "key", 2
WScript.Echo Err.Number & " " & Err.Description ' expect: 457 This key is already associated with an element of this collection
Err.Clear
e.Remove "nope"
WScript.Echo Err.Number & " " & Err.Description ' expect: 32811 Element not found
Err.Clear
e.CompareMode = 0
WScript.Echo Err.Number ' expect: 5
Err.Clear
' Numbers match across subtypes; the default member is Item; a key taken by another fails.
Set f = CreateObject("Scripting.Dictionary")
f.Add 2, "two"
f.Add "b", "bee"
WScript.Echo f.Item(2.0) & " " & f(CByte(2)) & " " & TypeName(f) ' expect: two two Dictionary
WScript.Echo f.Keys()(1) & " " & f.Items()(0) ' expect: b two
x = f.Keys()(2)
WScript.Echo Err.Number ' expect: 9
Err.Clear
f.Key(2) = "b"
WScript.Echo Err.Number & " " & f.Count ' expect: 457 2
Err.Clear
f.Count = 1
WScript.Echo Err.Number ' expect: 450
Err.Clear
f.Item = 1
WScript.Echo Err.Number ' expect: 450
Err.Clear
f.Frobnicate
WScript.Echo Err.Number ' expect: 438
Err.Clear
' Object keys are identities; an array is no key.
f.Add d, 1
WScript.Echo f.Exists(d) & " " & f.Exists(e) ' expect: True False
Err.Clear
f.Add Array(1), 1
WScript.Echo Err.Number ' expect: 13
Err.Clear
' Many removals keep the order and the lookups; a removed key comes back last.
Set g = CreateObject("Scripting.Dictionary")
For i = 0 To 99 : g.Add i, i * 10 : Next
For i = 0 To 99 Step 2 : g.Remove i : Next
g.Add 0, "back"
g.Key(99) = "last"
k = g.Keys
WScript.Echo g.Count & " " & k(0) & " " & k(49) & " " & k(50) & " " & g(51) & " " & g.Exists(50) & " " & g("last") ' expect: 51 1 last 0 510 False 990
