Dim a, b
a = 32767
b = a + 1
WScript.Echo b, TypeName(a), TypeName(b)
a = 2147483647
b = a + 1
WScript.Echo b, TypeName(b)
WScript.Echo TypeName(200 * 200), TypeName(100 * 100)
WScript.Echo TypeName(-32768 - 1)
' expect: 32768 Integer Long
' expect: 2147483648 Double
' expect: Long Integer
' expect: Long
