' MsgBox and InputBox without a display: vbsrun's host prints the prompt and answers with the
' safe default, so a batch never blocks.
WScript.Echo MsgBox("Done") ' expect: Done
' expect: 1
WScript.Echo MsgBox("Overwrite?", vbYesNo + vbQuestion, "Photos") ' expect: Overwrite?
' expect: 7
WScript.Echo MsgBox("Go on?", vbOKCancel) ' expect: Go on?
' expect: 2
WScript.Echo "[" & InputBox("Name?", "Photos", "default") & "]" ' expect: []
