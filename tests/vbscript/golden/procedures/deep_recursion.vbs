' Recursion a few thousand levels deep runs; only runaway recursion ends in 28.
Function Depth(n)
    If n = 0 Then Depth = 0 Else Depth = 1 + Depth(n - 1)
End Function
Class Walker
    Function Down(n)
        If n = 0 Then Down = 0 Else Down = 1 + Me.Down(n - 1)
    End Function
End Class
WScript.Echo Depth(5000), (New Walker).Down(5000)
' expect: 5000 5000
