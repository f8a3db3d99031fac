' An error inside an expression abandons the rest of its statement under On Error Resume Next:
' the target keeps its old value and the later operands are never evaluated.
Function Boom()
    Err.Raise 1000
End Function
Function Noted()
    WScript.Echo "evaluated"
    Noted = True
End Function
Dim x, a(1)
On Error Resume Next
x = 6
x = Boom() And Noted()
a(0) = "old"
a(0) = 1 / 0 & Noted()
WScript.Echo x, a(0), Err.Number
' expect: 6 old 11
