Dim v
For Each v In Array(1, 2, 3, "a", 7)
    Select Case v
        Case 1
            WScript.Echo "one"
        Case 2, 3
            WScript.Echo "two or three"
        Case "a"
            WScript.Echo "letter"
        Case Else
            WScript.Echo "else " & v
    End Select
Next
' expect: one
' expect: two or three
' expect: two or three
' expect: letter
' expect: else 7
