Dim a, count
For Each a In WScript.Arguments
    count = count + 1
Next
WScript.Echo count + 0, WScript.Arguments.Count
' expect: 0 0
