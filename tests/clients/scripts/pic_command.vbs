' A PicCommand, as a script reads and writes it. One line of output each.
Option Explicit

Dim button
Set button = CreateObject("KivControls.PicCommand")

Sub Report(what)
    WScript.Echo what & " " & Err.Number
    Err.Clear
End Sub

WScript.Echo "class " & TypeName(button)
WScript.Echo "new " & button.PictureType & " " & button.DetailStatus & " [" & button.Caption & "] " & _
    button.Enabled & " " & button.Value
button.DetailStatus = 2
WScript.Echo "complete " & button.BoundDetailStatus & " " & TypeName(button.BoundDetailStatus)
button.BoundDetailStatus = Null
WScript.Echo "null " & button.DetailStatus
button.BoundDetailStatus = "1"
WScript.Echo "text " & button.DetailStatus
button.PictureType = 77
WScript.Echo "beyond " & button.PictureType
button.Caption = "&Details"
WScript.Echo "caption " & button.Caption
button.Enabled = False
WScript.Echo "disabled " & button.Enabled
button.Value = True
WScript.Echo "pressed " & button.Value
button.Refresh
WScript.Echo "window " & (button.hwnd <> 0)

On Error Resume Next
button.BoundDetailStatus = "complete"
Report "words for a status"
button.hwnd = 1
Report "a read-only property"
button.Click
Report "an event as a method"
