WScript.Echo "a", _
             "b", _
             "c"
' expect: a b c
