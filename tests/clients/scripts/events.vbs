' A change by program reaches the script that listens.
Option Explicit

Dim answer
Set answer = WScript.CreateObject("KivControls.YesNo", "answer_")
answer.Value = 2

Sub answer_Change()
    WScript.Echo "changed to " & answer.Value
End Sub
