Function Run()
    counter = 1
    Execute "counter = counter + 41"
    Run = counter
End Function
WScript.Echo Run()
' expect: 42
