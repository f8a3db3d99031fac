Stop
WScript.Echo "after stop"
' expect: after stop
