' Variables that Execute'd code declares are there for the code that follows in the same scope,
' under Option Explicit too; before the Execute runs, the name is still undefined (500).
Option Explicit
Execute "Dim atTop : atTop = 1"
WScript.Echo atTop
Sub Local()
    On Error Resume Next
    WScript.Echo inside
    WScript.Echo Err.Number
    Err.Clear
    Execute "Dim inside : inside = 2"
    inside = inside + 1
    WScript.Echo inside, Err.Number
End Sub
Local
' expect: 1
' expect: 500
' expect: 3 0
