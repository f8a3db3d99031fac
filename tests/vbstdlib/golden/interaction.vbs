' MsgBox and InputBox without a display: the host answers with the safe default, never blocks.
WScript.Echo MsgBox("Done") ' expect: 1
WScript.Echo MsgBox("Overwrite?", vbYesNo + vbQuestion, "Photos") ' expect: 7
WScript.Echo MsgBox("Go on?", vbOKCancel) ' expect: 2
WScript.Echo "[" & InputBox("Name?", "Photos", "default") & "]" ' expect: []
On Error Resume Next
x = MsgBox("bad", 6)
WScript.Echo Err.Number ' expect: 5
