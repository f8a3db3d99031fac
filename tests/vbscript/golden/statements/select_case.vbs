Dim v
For Each v In Array(1, 2, 3, 7)
    Select Case v
        Case 1
            WScript.Echo "one"
        Case 2, 3
            WScript.Echo "two or three"
        Case Else
            WScript.Echo "else " & v
    End Select
Next
Select Case "b"
    Case "a", "b"
        WScript.Echo "letter"
End Select
' expect: one
' expect: two or three
' expect: two or three
' expect: else 7
' expect: letter
