On Error Resume Next
WScript.NoSuchMember 1
WScript.Echo Err.Number
WScript.Echo Err.Description
' expect: 438
' expect: Object doesn't support this property or method: 'NoSuchMember'
