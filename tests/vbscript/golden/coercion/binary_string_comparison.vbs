WScript.Echo "a" < "B", "B" < "a", "abc" < "abd", "" < "a", "A" = "a"
' expect: False True True True False
