Class Temp
    Public V
    Public Function Show()
        Show = "V=" & V
    End Function
End Class
With New Temp
    .V = 9
    WScript.Echo .Show()
End With
' expect: V=9
