' CreateObject knows three ProgIDs, in any case; any other is 429.
WScript.Echo TypeName(CreateObject("scripting.dictionary")) ' expect: Dictionary
WScript.Echo TypeName(CreateObject("Scripting.FileSystemObject")) ' expect: FileSystemObject
On Error Resume Next
Set x = CreateObject("Excel.Application")
WScript.Echo Err.Number & " " & Err.Description ' expect: 429 ActiveX component can't create object
