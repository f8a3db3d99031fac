On Error Resume Next
Err.Raise 5000, "src", "custom text"
WScript.Echo Err.Number, Err.Source, Err.Description
Err.Clear
WScript.Echo Err.Number, "[" & Err.Description & "]"
Err.Raise 13
WScript.Echo Err.Number, Err.Description
' expect: 5000 src custom text
' expect: 0 []
' expect: 13 Type mismatch
