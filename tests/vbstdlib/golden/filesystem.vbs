' FileSystemObject in a scratch folder beside the test: folders, text files, copying, names.
Set fso = CreateObject("Scripting.FileSystemObject")
root = fso.GetAbsolutePathName("vbstdlib_fso_scratch")
If fso.FolderExists(root) Then fso.DeleteFolder root
fso.CreateFolder root
WScript.Echo fso.FolderExists(root & "\") & " " & InStr(root, "/") ' expect: True 0
Set t = fso.CreateTextFile(fso.BuildPath(root, "list.txt"))
t.WriteLine "first"
t.Write "café"
t.Close
Set t = fso.OpenTextFile(root & "\LIST.TXT", 1)
Do Until t.AtEndOfStream
    WScript.Echo t.ReadLine ' expect: first
Loop ' expect: café
t.Close
Set f = fso.GetFile(root & "\list.txt")
WScript.Echo f.Name & " " & f.Size & " " & (f.Path = root & "\list.txt") ' expect: list.txt 12 True
WScript.Echo TypeName(f.DateLastModified) & " " & (f.ParentFolder.Path = root) ' expect: Date True
fso.CopyFile root & "\list.txt", root & "\copy.txt"
fso.CreateFolder root & "\sub"
fso.MoveFile root & "\copy.txt", root & "\sub\"
Set folder = fso.GetFolder(root)
WScript.Echo folder.Files.Count & " " & folder.SubFolders.Count ' expect: 1 1
For Each sf In folder.SubFolders
    For Each file In sf.Files
        WScript.Echo sf.Name & "\" & file.Name ' expect: sub\copy.txt
    Next
Next
WScript.Echo fso.GetBaseName("\photos\a.b.jpg") & " " & fso.GetExtensionName("x.JPG") ' expect: a.b JPG
WScript.Echo fso.GetFileName("\photos\a.jpg") & " " & fso.GetParentFolderName("\photos\a.jpg") ' expect: a.jpg \photos
fso.DeleteFile root & "\sub\copy.txt"
WScript.Echo fso.FileExists(root & "\sub\copy.txt") ' expect: False
On Error Resume Next
Set g = fso.GetFile(root & "\none.jpg")
WScript.Echo Err.Number & " " & Err.Description ' expect: 53 File not found
Err.Clear
fso.CreateFolder root
WScript.Echo Err.Number & " " & Err.Description ' expect: 58 File already exists
Err.Clear
Set t = fso.OpenTextFile(root & "\list.txt")
x = t.ReadAll
x = t.ReadLine
WScript.Echo Err.Number & " " & Err.Description ' expect: 62 Input past end of file
On Error GoTo 0
fso.DeleteFolder root
WScript.Echo fso.FolderExists(root) ' expect: False
