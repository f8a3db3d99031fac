WScript.Echo CSng(1.1), CCur(2.5), CCur(1) / 3, TypeName(CCur(1) + 1)
' expect: 1.1 2.5 0.333333333333333 Currency
