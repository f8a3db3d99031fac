' Err.Raise keeps the Err object's current source, description, help file and context for the
' arguments left out (the standard texts when those are empty), and reads an HRESULT as the
' VBScript error it stands for. A run-time error replaces all of them.
On Error Resume Next
Err.Raise 1, "src", "desc", "help.chm", 7
Err.Raise 5
WScript.Echo Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext
Err.Clear
Err.Raise &h8007000E&
WScript.Echo Err.Number, Err.Source, Err.Description
Err.Raise &h800A0035&
WScript.Echo Err.Number, Err.Description
Err.Raise 1, "src", "desc", "help.chm", 7
Err.NoSuchThing
WScript.Echo Err.Number, "[" & Err.HelpFile & "]", Err.HelpContext
' expect: 5 src desc help.chm 7
' expect: 7 Microsoft VBScript runtime error Out of memory
' expect: 53 Out of memory
' expect: 438 [] 0
