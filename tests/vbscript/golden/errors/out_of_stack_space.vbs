Function Down(n)
    Down = Down(n + 1)
End Function
Down 1
' expect runtime error 28 line 2
