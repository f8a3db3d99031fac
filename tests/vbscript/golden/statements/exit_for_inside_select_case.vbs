' Exit For inside Select Case leaves the loop, not just the Select.
Dim i, j, s
For i = 1 To 5
    Select Case i
        Case 3
            Exit For
        Case Else
            s = s & i
    End Select
Next
WScript.Echo s, i
For Each j In Array(1, 2, 3, 4)
    Select Case j
        Case 2: Exit For
    End Select
Next
WScript.Echo j
Do
    For i = 1 To 3
        Select Case i
            Case 2
                Exit Do
        End Select
    Next
Loop
WScript.Echo i
' expect: 12 3
' expect: 2
' expect: 2
