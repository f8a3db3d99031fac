' FormatNumber (digits, leading digit, parentheses, grouping), FormatCurrency, FormatPercent,
' FormatDateTime and the en-US locale.
WScript.Echo FormatNumber(1234567.891, 1) ' expect: 1,234,567.9
WScript.Echo FormatNumber(1234567.891, 0) ' expect: 1,234,568
WScript.Echo FormatNumber(0.5, 2, vbFalse) ' expect: .50
WScript.Echo FormatNumber(-0.5, 2, , vbTrue) ' expect: (0.50)
WScript.Echo FormatNumber(1234.5, 2, , , vbFalse) ' expect: 1234.50
WScript.Echo FormatNumber("1000") ' expect: 1,000.00
WScript.Echo FormatNumber(12, 3) ' expect: 12.000
WScript.Echo FormatCurrency(-1234.5, 2, , vbFalse) ' expect: -$1,234.50
WScript.Echo FormatPercent(0.5, 0) ' expect: 50%
WScript.Echo FormatDateTime(#1/2/2003 10:30:00 PM#) ' expect: 1/2/2003 10:30:00 PM
WScript.Echo FormatDateTime(#1/2/2003 10:30:00 PM#, vbLongDate) ' expect: Thursday, January 2, 2003
WScript.Echo FormatDateTime(#1/2/2003 10:30:00 PM#, vbShortDate) ' expect: 1/2/2003
WScript.Echo FormatDateTime(#1/2/2003 10:30:00 PM#, vbLongTime) ' expect: 10:30:00 PM
WScript.Echo FormatDateTime(#1/2/2003 10:30:00 PM#, vbShortTime) ' expect: 22:30
WScript.Echo FormatDateTime(#1/2/2003#) ' expect: 1/2/2003
WScript.Echo GetLocale() ' expect: 1033
WScript.Echo SetLocale(1033) ' expect: 1033
WScript.Echo SetLocale("en-us") ' expect: 1033
