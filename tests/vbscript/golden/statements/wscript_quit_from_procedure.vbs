Sub Finish()
    WScript.Echo "bye", WScript.ScriptName
    WScript.Quit 3
End Sub
Finish
WScript.Echo "never"
' expect: bye wscript_quit_from_procedure.vbs
' expect exit 3
