' A Sub or Function inside a block of top-level code is declared as if it stood at the top level,
' before any code runs; a later definition of a name replaces an earlier one everywhere, even
' where the call comes first.
If False Then
    Sub Hidden()
        WScript.Echo "hidden runs"
    End Sub
    Function Seven()
        Seven = 7
    End Function
End If
WScript.Echo Twice()
Hidden
WScript.Echo Seven
Function Twice()
    Twice = 1
End Function
Sub Twice()
End Sub
Function Twice()
    Twice = 2
End Function
' expect: 2
' expect: hidden runs
' expect: 7
