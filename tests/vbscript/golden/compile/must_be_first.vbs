Dim a
Option Explicit
' expect compile error 1042 line 2
