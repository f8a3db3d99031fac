Class Node
    Public Value, NextNode
    Public Function Sum()
        If IsObject(NextNode) Then
            Sum = Value + NextNode.Sum()
        Else
            Sum = Value
        End If
    End Function
End Class
Dim head, n, i
Set head = New Node
head.Value = 1
Set n = head
For i = 2 To 5
    Set n.NextNode = New Node
    Set n = n.NextNode
    n.Value = i
Next
WScript.Echo head.Sum()
' expect: 15
