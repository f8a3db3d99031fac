' Method calls on a script class instance.
Class Acc
    Public Total
    Public Sub Add(n)
        Total = Total + n
    End Sub
End Class
Sub Main()
    Dim a, i
    Set a = New Acc
    a.Total = 0
    For i = 1 To 1000000
        a.Add i
    Next
    WScript.Echo a.Total
End Sub
Main
