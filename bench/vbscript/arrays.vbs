' Array work: a sieve of Eratosthenes and a summing pass over a dynamic array.
Sub Main()
    Dim flags(), i, j, count, total
    Const N = 2000000
    ReDim flags(N)
    count = 0
    For i = 2 To N
        If Not flags(i) Then
            count = count + 1
            For j = i + i To N Step i
                flags(j) = True
            Next
        End If
    Next
    total = 0
    For i = 0 To N Step 3
        If flags(i) Then total = total + 1
    Next
    WScript.Echo count, total
End Sub
Main
