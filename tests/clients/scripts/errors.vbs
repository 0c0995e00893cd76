' What a script sees when it asks for what cannot be.
Option Explicit

Dim answer
Set answer = CreateObject("KivControls.YesNo")

Sub Report(what)
    WScript.Echo what & " " & Err.Number
    Err.Clear
End Sub

On Error Resume Next
answer.Value = 1
Report "a number"
answer.Value = "left"
Report "words for a number"
answer.Value = Null
Report "null for a number"
answer.Value = 3000000000
Report "too large a number"
answer.Enabled = "perhaps"
Report "words for a truth"
answer.hwnd = 1
Report "a read-only property"
answer.Caption = "x"
Report "an unknown property"
answer.Click
Report "an event as a method"
answer.Text = "no such answer"
Report "an unknown answer"
WScript.Echo "afterwards " & answer.Value & " " & answer.Enabled
