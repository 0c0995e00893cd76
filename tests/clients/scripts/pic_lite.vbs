' A PicLite, as a script reads and writes it. One line of output each.
Option Explicit

Dim picture, face
Set picture = CreateObject("KivControls.PicLite")

Sub Report(what)
    WScript.Echo what & " " & Err.Number
    Err.Clear
End Sub

WScript.Echo "class " & TypeName(picture)
WScript.Echo "new " & (picture.Picture Is Nothing) & " " & (picture.ResultPicture Is Nothing) & " " & _
    picture.MaskColor & " " & picture.ReplaceColor
picture.MaskColor = 255
face = &H8000000F
picture.ReplaceColor = face
WScript.Echo "colours " & Hex(picture.MaskColor) & " " & Hex(picture.ReplaceColor) & " " & Hex(face)
Set picture.Picture = Nothing
WScript.Echo "nothing " & (picture.ResultPicture Is Nothing)
picture.SetAppTitle "Form Folio"
WScript.Echo "title set"

On Error Resume Next
picture.MaskColor = "red"
Report "words for a colour"
Set picture.ResultPicture = Nothing
Report "a read-only property"
Set picture.Picture = picture
WScript.Echo "a control for a picture " & (Err.Number <> 0)
