' A call target may be parenthesised: Call (New C).M(), Call (((f))) (x), (f)(x), ((a))(0); extra
' parentheses around an argument still pass a copy. A blank before an index still makes an
' assignment target: a (0) = v. Member calls inside With may end with parentheses, also on a
' line continued into End With.
Class Greeter
    Public n
    Sub Hello()
        WScript.Echo "hello"
    End Sub
    Function Add(a, b)
        Add = a + b
        n = Add
    End Function
End Class
Sub SetFirst(arr)
    arr(0) = "changed"
End Sub
Function First(arr)
    First = arr(0)
End Function
Dim a, b(2)
Call (New Greeter).Hello()
Call (New Greeter).Hello
a = Array("kept")
Call (((SetFirst))) ((a))
WScript.Echo a(0)
Call (((SetFirst))) (a)
WScript.Echo a(0)
a = Array(5, 6)
WScript.Echo (First)(a), ((a))(1)
b (0) = 2 Xor -2
WScript.Echo b(0)
With New Greeter
    .Hello()
    .Add 1, _
        2
    WScript.Echo .n
    .Hello() _
End With
' expect: hello
' expect: hello
' expect: kept
' expect: changed
' expect: 5 6
' expect: -4
' expect: hello
' expect: 3
' expect: hello
