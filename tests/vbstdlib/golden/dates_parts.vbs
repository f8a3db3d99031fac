' Year ... Second, Weekday, DateValue, TimeValue, the names, IsDate, Now, Date, Time, Timer.
WScript.Echo Year(#8/17/2003#) & " " & Month(#8/17/2003#) & " " & Day(#8/17/2003#) ' expect: 2003 8 17
WScript.Echo Hour(#2:05:09 PM#) & " " & Minute(#2:05:09 PM#) & " " & Second(#2:05:09 PM#) ' expect: 14 5 9
WScript.Echo Year("8/17/2003") ' expect: 2003
WScript.Echo Weekday(#8/17/2003#) & " " & Weekday(#8/17/2003#, vbMonday) ' expect: 1 7
WScript.Echo IsNull(Year(Null)) ' expect: True
WScript.Echo TypeName(Year(Now)) ' expect: Integer
WScript.Echo DateValue("8/17/2003 2:05 PM") ' expect: 8/17/2003
WScript.Echo TimeValue("8/17/2003 2:05 PM") ' expect: 2:05:00 PM
WScript.Echo DateValue("August 17, 2003") ' expect: 8/17/2003
WScript.Echo MonthName(9) & " " & MonthName(9, True) ' expect: September Sep
WScript.Echo WeekdayName(1) & " " & WeekdayName(7, True) ' expect: Sunday Sat
WScript.Echo WeekdayName(1, False, vbMonday) ' expect: Monday
WScript.Echo IsDate("1/2/2003") & " " & IsDate("2/30/2003") & " " & IsDate("abc") ' expect: True False False
WScript.Echo IsDate(#1/1/2003#) & " " & IsDate(5) & " " & IsDate("10:30 PM") ' expect: True False True
WScript.Echo IsDate(Nothing) & " " & IsDate(New RegExp) ' expect: False False
WScript.Echo TypeName(Now) & " " & TypeName(Date) & " " & TypeName(Time) ' expect: Date Date Date
WScript.Echo Now - Date < 1 And Now >= Date ' expect: True
WScript.Echo Int(Date) = Date ' expect: True
WScript.Echo Time < 1 ' expect: True
WScript.Echo Timer >= 0 And Timer < 86400 ' expect: True
WScript.Echo TypeName(Timer) ' expect: Single
