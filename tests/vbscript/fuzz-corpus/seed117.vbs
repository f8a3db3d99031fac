Dim i, j, hits
Do
    For i = 1 To 3
        hits = hits + 1
        If i = 2 Then Exit For
    Next
    j = j + 1
    If j = 2 Then Exit Do
Loop
WScript.Echo hits, j
' expect: 4 2
