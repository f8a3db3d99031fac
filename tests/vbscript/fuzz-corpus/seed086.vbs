DIM Counter
counter = 5
COUNTER = Counter + 1
wscript.echo CoUnTeR
IF counter = 6 THEN wscript.ECHO "six"
' expect: 6
' expect: six
