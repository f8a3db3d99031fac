For Each x In 5 : Next
' expect runtime error 451 line 1
