' Under On Error Resume Next, Windows goes on with the first statement inside a block whose head
' failed: an If or ElseIf condition, a Case value, a Do While / Until or While condition tested
' before the body, a For bound, a For Each collection (also one that is no collection) and a With
' object. Loops entered that way run their body once. A condition tested after the body leaves
' the loop instead, and a failing Select Case selector skips the whole statement.
Function Boom()
    Err.Raise 1000
End Function
Sub Run()
    On Error Resume Next
    Dim x, y
    If False Then
    ElseIf Boom() Then
        WScript.Echo "elseif", Err.Number
    End If
    Err.Clear
    If Boom() Then WScript.Echo "one-line if", Err.Number Else WScript.Echo "no"
    x = 0
    Do While Boom()
        x = x + 1
        If x = 2 Then Exit Do
    Loop
    WScript.Echo "do while", x
    x = 0
    Do
        x = x + 1
    Loop Until Boom()
    WScript.Echo "loop until", x
    x = 6 : y = 0
    For x = 1 To Boom()
        y = y + 1
    Next
    WScript.Echo "for", x, y
    x = 2 : y = 0
    For Each x In Boom()
        y = y + 1
    Next
    WScript.Echo "for each", x, y
    Err.Clear
    For Each x In 5
        y = y + 1
    Next
    WScript.Echo "not a collection", y, Err.Number
    Select Case Boom()
        Case Else : WScript.Echo "no"
    End Select
    Select Case False
        Case True : WScript.Echo "no"
        Case Boom() : WScript.Echo "case"
        Case Else : WScript.Echo "no"
    End Select
    Err.Clear
    With Boom()
        WScript.Echo "with", Err.Number
        .Prop = 1
        WScript.Echo Err.Number
    End With
End Sub
Run
' expect: elseif 1000
' expect: one-line if 1000
' expect: do while 2
' expect: loop until 1
' expect: for 6 1
' expect: for each 2 1
' expect: not a collection 2 451
' expect: case
' expect: with 1000
' expect: 424
