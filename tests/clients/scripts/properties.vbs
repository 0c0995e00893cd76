' The properties of a YesNo, as a script reads and writes them. One line of output each.
Option Explicit

Dim answer
Set answer = CreateObject("KivControls.YesNo")

WScript.Echo "class " & TypeName(answer)
WScript.Echo "default " & answer & " " & TypeName(answer.Value)
WScript.Echo "texts " & answer.YesText & " " & answer.NoText
WScript.Echo "colours " & Hex(answer.BackColor) & " " & Hex(answer.ForeColor)
WScript.Echo "enabled " & answer.Enabled

answer.Value = 1
WScript.Echo "yes " & answer.Value & " " & answer.Text
answer.Value = 2
WScript.Echo "no " & answer.Value & " " & answer.Text
answer.Value = 0
WScript.Echo "neither " & answer.Value & " " & IsNull(answer.Text)
answer.Value = 5
WScript.Echo "beyond " & answer.Value & " " & IsNull(answer.Text)

answer.Text = "Y"
WScript.Echo "by text " & answer.Value
answer.Text = "n"
WScript.Echo "other case " & answer.Value
answer.Text = "N"
WScript.Echo "no text " & answer.Value
answer.Text = Null
WScript.Echo "null " & answer.Value

Dim wanted
wanted = "Ja"
answer.YesText = wanted
answer.Text = wanted
WScript.Echo "variable " & answer.Value & " " & answer.Text

answer.Enabled = False
WScript.Echo "disabled " & answer.Enabled
answer.BackColor = vbRed
WScript.Echo "red " & answer.BackColor
answer.Font.Size = 12
answer.Font.Bold = True
WScript.Echo "font " & answer.Font.Size & " " & answer.Font.Bold
WScript.Echo "window " & (answer.hwnd <> 0)

' The default member is the answer.
Dim copy
copy = answer
WScript.Echo "copied " & copy
