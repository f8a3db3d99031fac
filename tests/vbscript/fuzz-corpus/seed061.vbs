Set o = New Missing
' expect runtime error 506 line 1
