' SetLocale takes the common locale ids and tags and returns the one it replaces. Number text
' (CStr, CDbl, IsNumeric), FormatNumber, FormatCurrency, FormatPercent, dates as text and read
' back, FormatDateTime and the month and day names follow it; date literals in code stay US.
Dim d, n, id
d = #3/4/2020 3:06:07 PM#
n = -1234567.891
For Each id In Array(2057, 1031, 1036, 1040, 1041, 3082)
    SetLocale id
    WScript.Echo GetLocale() & "|" & CStr(n) & "|" & FormatNumber(n) & "|" & FormatCurrency(n) & "|" & FormatPercent(0.125)
    WScript.Echo CStr(d) & "|" & FormatDateTime(d, vbLongDate) & "|" & MonthName(3) & "|" & WeekdayName(4, True)
Next
WScript.Echo SetLocale("de-de") & " " & CDbl("1.234,5") & " " & CDbl("1,5") * 2 & " " & IsNumeric("1.5")
WScript.Echo Month(CDate("4.3.2020")) & " " & Month(CDate("4. März 2020")) & " " & Month(DateValue("3/4/2020"))
WScript.Echo SetLocale(0) & " " & GetLocale() & " " & CDbl("1,5") & " " & Month(CDate("3/4/2020"))
' expect: 2057|-1234567.891|-1,234,567.89|-£1,234,567.89|12.50%
' expect: 04/03/2020 15:06:07|04 March 2020|March|Wed
' expect: 1031|-1234567,891|-1.234.567,89|-1.234.567,89 €|12,50%
' expect: 04.03.2020 15:06:07|Mittwoch, 4. März 2020|März|Mi
' expect: 1036|-1234567,891|-1 234 567,89|-1 234 567,89 €|12,50%
' expect: 04/03/2020 15:06:07|mercredi 4 mars 2020|mars|mer.
' expect: 1040|-1234567,891|-1.234.567,89|-€ 1.234.567,89|12,50%
' expect: 04/03/2020 15:06:07|mercoledì 4 marzo 2020|marzo|mer
' expect: 1041|-1234567.891|-1,234,567.89|-¥1,234,568|12.50%
' expect: 2020/03/04 15:06:07|2020年3月4日|3月|水
' expect: 3082|-1234567,891|-1.234.567,89|-1.234.567,89 €|12,50%
' expect: 04/03/2020 15:06:07|miércoles, 04 de marzo de 2020|marzo|mié
' expect: 3082 1234,5 3 True
' expect: 3 3 4
' expect: 1031 1033 15 3
