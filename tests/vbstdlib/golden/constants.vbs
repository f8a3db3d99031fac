' The library's named constants keep VBScript's values and subtypes.
WScript.Echo Len(vbCrLf) & Len(vbNewLine) & Asc(vbCr) & Asc(vbLf) & Asc(vbTab) ' expect: 2213109
WScript.Echo vbBinaryCompare & vbTextCompare ' expect: 01
WScript.Echo vbSunday & vbSaturday & vbUseSystemDayOfWeek & vbFirstFourDays ' expect: 1702
WScript.Echo vbGeneralDate & vbLongDate & vbShortTime ' expect: 014
WScript.Echo vbOKOnly & vbYesNo & vbCritical & vbExclamation & vbDefaultButton2 ' expect: 041648256
WScript.Echo vbOK & vbCancel & vbYes & vbNo ' expect: 1267
WScript.Echo vbString & " " & vbArray & " " & vbByte ' expect: 8 8192 17
WScript.Echo vbTrue & " " & vbFalse & " " & vbUseDefault & " " & TypeName(vbTrue) ' expect: -1 0 -2 Integer
WScript.Echo vbObjectError & " " & TypeName(vbObjectError) ' expect: -2147221504 Long
WScript.Echo vbRed & " " & vbWhite & " " & TypeName(vbBlack) ' expect: 255 16777215 Long
WScript.Echo vbMsgBoxHelpButton & " " & vbMsgBoxSetForeground & " " & vbMsgBoxRight & " " & vbMsgBoxRtlReading & " " & TypeName(vbMsgBoxHelpButton) ' expect: 16384 65536 524288 1048576 Long
WScript.Echo Len(vbNullString) & " " & Len(vbNullChar) & " " & AscW(vbNullChar) ' expect: 0 1 0
