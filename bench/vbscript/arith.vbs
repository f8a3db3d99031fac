' Arithmetic: integer and floating-point work in a tight loop.
Sub Main()
    Dim i, total, x
    total = 0
    x = 0.5
    For i = 1 To 3000000
        total = total + (i * 3) Mod 7
        x = x * 1.0000001 + 0.25
    Next
    WScript.Echo total, Int(x)
End Sub
Main
