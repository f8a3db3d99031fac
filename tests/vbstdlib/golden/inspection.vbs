' TypeName and VarType of every subtype, the Is* tests (IsNumeric's strings), arrays, RGB.
Set d = CreateObject("Scripting.Dictionary")
Dim nothingYet
Set nothingYet = Nothing
WScript.Echo TypeName(Empty) & " " & VarType(Empty) ' expect: Empty 0
WScript.Echo TypeName(Null) & " " & VarType(Null) ' expect: Null 1
WScript.Echo TypeName(1) & " " & VarType(1) ' expect: Integer 2
WScript.Echo TypeName(100000) & " " & VarType(100000) ' expect: Long 3
WScript.Echo TypeName(CSng(1)) & " " & VarType(CSng(1)) ' expect: Single 4
WScript.Echo TypeName(1.5) & " " & VarType(1.5) ' expect: Double 5
WScript.Echo TypeName(CCur(1)) & " " & VarType(CCur(1)) ' expect: Currency 6
WScript.Echo TypeName(#1/2/2003#) & " " & VarType(Now) ' expect: Date 7
WScript.Echo TypeName("s") & " " & VarType("s") ' expect: String 8
WScript.Echo TypeName(d) & " " & VarType(d) ' expect: Dictionary 9
WScript.Echo TypeName(nothingYet) ' expect: Nothing
WScript.Echo TypeName(True) & " " & VarType(False) ' expect: Boolean 11
WScript.Echo TypeName(CByte(1)) & " " & VarType(CByte(1)) ' expect: Byte 17
WScript.Echo TypeName(Array(1)) & " " & VarType(Array(1)) ' expect: Variant() 8204
WScript.Echo IsNumeric(" 12 ") ' expect: True
WScript.Echo IsNumeric("abc") ' expect: False
WScript.Echo IsNumeric("1 2") ' expect: False
WScript.Echo IsNumeric(Empty) ' expect: True
WScript.Echo IsNumeric(Null) ' expect: False
WScript.Echo IsNumeric(True) ' expect: True
WScript.Echo IsNumeric(#1/2/2003#) ' expect: False
WScript.Echo IsEmpty(Empty) & " " & IsEmpty("") ' expect: True False
WScript.Echo IsNull(Null) & " " & IsNull(Empty) ' expect: True False
WScript.Echo IsObject(d) & " " & IsObject(nothingYet) & " " & IsObject(1) ' expect: True True False
WScript.Echo IsArray(Array()) & " " & IsArray("a") ' expect: True False
Dim grid(2, 4)
WScript.Echo UBound(grid) & " " & UBound(grid, 2) & " " & LBound(grid, 2) ' expect: 2 4 0
WScript.Echo UBound(Array()) ' expect: -1
WScript.Echo RGB(255, 0, 0) & " " & RGB(0, 0, 255) & " " & RGB(300, 1, 0) ' expect: 255 16711680 511
WScript.Echo ScriptEngine ' expect: VBScript
WScript.Echo ScriptEngineMajorVersion >= 5 ' expect: True
On Error Resume Next
x = UBound("a")
WScript.Echo Err.Number ' expect: 13
Err.Clear
x = UBound(grid, 3)
WScript.Echo Err.Number ' expect: 9
Err.Clear
x = RGB(-1, 0, 0)
WScript.Echo Err.Number ' expect: 5
