WScript.Echo 1+2*3-4/2, 10\3, 2^3
' expect: 5 3 8
