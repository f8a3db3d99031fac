' The Execute'd local hides a global of the same name, starts Empty in each call, and can be
' an array.
Dim shared : shared = "global"
Sub P(n)
    Execute "Dim shared : WScript.Echo IsEmpty(shared) : shared = n * 10"
    Execute "Dim arr(2) : arr(2) = shared"
    WScript.Echo Eval("shared"), Eval("arr(2)")
End Sub
P 1
P 2
WScript.Echo shared
' expect: True
' expect: 10 10
' expect: True
' expect: 20 20
' expect: global
