' Procedure calls: a small function called in a loop, and recursion.
Function Add(a, b)
    Add = a + b
End Function
Function Fib(n)
    If n < 2 Then
        Fib = n
    Else
        Fib = Fib(n - 1) + Fib(n - 2)
    End If
End Function
Sub Main()
    Dim i, total
    total = 0
    For i = 1 To 1000000
        total = Add(total, i)
    Next
    WScript.Echo total, Fib(25)
End Sub
Main
