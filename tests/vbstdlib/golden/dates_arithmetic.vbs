' DateAdd (month ends), DateDiff (weeks and boundaries), DatePart (week rules), DateSerial.
WScript.Echo DateAdd("m", 1, #1/31/2003#) ' expect: 2/28/2003
WScript.Echo DateAdd("m", 1, #1/31/2004#) ' expect: 2/29/2004
WScript.Echo DateAdd("m", -1, #3/31/2003#) ' expect: 2/28/2003
WScript.Echo DateAdd("yyyy", 1, #2/29/2004#) ' expect: 2/28/2005
WScript.Echo DateAdd("q", 1, #11/30/2003#) ' expect: 2/29/2004
WScript.Echo DateAdd("d", 1, #12/31/2003#) ' expect: 1/1/2004
WScript.Echo DateAdd("ww", 2, #1/1/2003#) ' expect: 1/15/2003
WScript.Echo DateAdd("h", 25, #1/1/2003#) ' expect: 1/2/2003 1:00:00 AM
WScript.Echo DateAdd("n", -1, #1/1/2003#) ' expect: 12/31/2002 11:59:00 PM
WScript.Echo DateAdd("s", 90, "1/1/2003 10:00") ' expect: 1/1/2003 10:01:30 AM
WScript.Echo DateDiff("ww", #1/1/2003#, #1/4/2003#) ' expect: 0
WScript.Echo DateDiff("ww", #1/1/2003#, #1/5/2003#) ' expect: 1
WScript.Echo DateDiff("ww", #1/1/2003#, #1/5/2003#, vbMonday) ' expect: 0
WScript.Echo DateDiff("ww", #1/1/2003#, #1/6/2003#, vbMonday) ' expect: 1
WScript.Echo DateDiff("w", #1/1/2003#, #1/7/2003#) & " " & DateDiff("w", #1/1/2003#, #1/8/2003#) ' expect: 0 1
WScript.Echo DateDiff("d", #1/10/2003#, #1/1/2003#) ' expect: -9
WScript.Echo DateDiff("yyyy", #12/31/2002#, #1/1/2003#) ' expect: 1
WScript.Echo DateDiff("m", #1/31/2003#, #2/1/2003#) ' expect: 1
WScript.Echo DateDiff("q", #3/31/2003#, #4/1/2003#) ' expect: 1
WScript.Echo DateDiff("h", #1/1/2003 10:59:00 AM#, #1/1/2003 11:00:00 AM#) ' expect: 1
WScript.Echo DateDiff("s", #1/1/2003#, #1/2/2003#) ' expect: 86400
WScript.Echo IsNull(DateDiff("d", Null, Now)) ' expect: True
WScript.Echo DatePart("ww", #1/1/2005#, vbMonday, vbFirstFourDays) ' expect: 53
WScript.Echo DatePart("ww", #1/3/2005#, vbMonday, vbFirstFourDays) ' expect: 1
WScript.Echo DatePart("ww", #1/1/2005#, vbSunday, vbFirstFullWeek) ' expect: 52
WScript.Echo DatePart("ww", #12/31/2003#) ' expect: 53
WScript.Echo DatePart("q", #8/17/2003#) & " " & DatePart("y", #8/17/2003#) ' expect: 3 229
WScript.Echo DatePart("w", #8/17/2003#) & " " & DatePart("w", #8/17/2003#, vbMonday) ' expect: 1 7
WScript.Echo DatePart("h", #2:05:09 PM#) & ":" & DatePart("n", #2:05:09 PM#) ' expect: 14:5
WScript.Echo DateSerial(2003, 14, 1) ' expect: 2/1/2004
WScript.Echo DateSerial(2003, 1, 0) ' expect: 12/31/2002
WScript.Echo DateSerial(2003, 0, 1) ' expect: 12/1/2002
WScript.Echo DateSerial(99, 1, 1) & " " & DateSerial(5, 1, 1) ' expect: 1/1/1999 1/1/2005
WScript.Echo TimeSerial(12, 30, 0) ' expect: 12:30:00 PM
WScript.Echo TimeSerial(25, 0, 0) ' expect: 12/31/1899 1:00:00 AM
WScript.Echo TimeSerial(0, 90, 0) ' expect: 1:30:00 AM
WScript.Echo DateAdd("m", 13, #12/15/2003#) & " " & DateAdd("w", 3, #1/1/2003#) ' expect: 1/15/2005 1/4/2003
WScript.Echo DateAdd("h", -18, CDate(0.5)) & " " & Hour(DateAdd("m", 1, #1/31/2003 10:30 AM#)) ' expect: 12/29/1899 6:00:00 PM 10
WScript.Echo DateDiff("m", #2/1/2003#, #1/31/2003#) & " " & DateDiff("d", #1/1/2003 11:00 PM#, #1/2/2003 1:00 AM#) ' expect: -1 1
WScript.Echo DateDiff("n", #1/1/2003 10:59:59 AM#, #1/1/2003 11:00 AM#) & " " & DateDiff("h", CDate(-1.5), CDate(0.5)) ' expect: 1 24
WScript.Echo DateDiff("ww", #1/5/2003#, #1/1/2003#) & " " & DateDiff("w", #1/8/2003#, #1/1/2003#) ' expect: -1 -1
WScript.Echo DatePart("ww", #1/1/2003#) & " " & DatePart("ww", #1/5/2003#) ' expect: 1 2
WScript.Echo DatePart("ww", #1/2/2005#, vbSunday, vbFirstFullWeek) & " " & DatePart("ww", #1/1/2004#, vbMonday, vbFirstFourDays) ' expect: 1 1
WScript.Echo DatePart("yyyy", #8/17/2003 2:05:09 PM#) & " " & DatePart("m", #8/17/2003#) & " " & DatePart("d", #8/17/2003#) & " " & DatePart("s", #2:05:09 PM#) ' expect: 2003 8 17 9
WScript.Echo DateSerial(2003, -1, 1) & " " & DateSerial(2003, 2, 29) & " " & DateSerial(30, 6, 15) & " " & DateSerial(2004, 1, 366) ' expect: 11/1/2002 3/1/2003 6/15/1930 12/31/2004
WScript.Echo TimeSerial(0, -1, 0) ' expect: 12/29/1899 11:59:00 PM
