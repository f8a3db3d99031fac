' String building: appending pieces and numbers, then reading characters back.
Sub Main()
    Dim s, i, n
    s = ""
    For i = 1 To 400000
        s = s & "ab" & (i Mod 10)
    Next
    n = 0
    For i = 1 To Len(s) Step 997
        If Mid(s, i, 1) = "a" Then n = n + 1
    Next
    WScript.Echo Len(s), n
End Sub
Main
