' A PercentBox, as a script reads and writes it. One line of output each.
Option Explicit

Dim rate
Set rate = CreateObject("KivControls.PercentBox")

Sub Report(what)
    WScript.Echo what & " " & Err.Number
    Err.Clear
End Sub

WScript.Echo "class " & TypeName(rate)
WScript.Echo "blank " & IsNull(rate.Value) & " [" & rate.Text & "] " & rate.IsValidInput
WScript.Echo "counts " & rate.MaxDigits & " " & rate.MaxDecimals & " " & rate.DisplayPercent & " " & rate.Complement
WScript.Echo "range " & rate.MinValue & " " & rate.MaxValue & " " & TypeName(rate.MaxValue)
rate.Value = 0.075
WScript.Echo "percent " & rate & " " & TypeName(rate.Value) & " " & rate.Text
rate.Value = 1
WScript.Echo "whole " & rate.Value & " " & rate.Text
rate.Value = 5
WScript.Echo "outside " & IsNull(rate.Value) & " " & rate.Text & " " & rate.IsValidInput(False)
rate.Value = Null
WScript.Echo "null " & IsNull(rate.Value)
rate.Complement = True
rate.Value = 0.25
WScript.Echo "complement " & rate.Value & " " & rate.Text
rate.DisplayPercent = False
rate.Value = 0.25
WScript.Echo "fraction " & rate.Value & " " & rate.Text

On Error Resume Next
rate.MaxDigits = 7
Report "too many digits"
rate.MaxDecimals = -1
Report "too few decimals"
rate.MaxValue = 100.5
Report "too high a bound"
rate.MinValue = -1
Report "too low a bound"
rate.MaxValue = 0
Report "no range"
rate.MinValue = "words"
Report "words for a bound"
rate.Text = "5"
Report "a read-only property"
On Error GoTo 0
rate.MaxDigits = 6
WScript.Echo "afterwards " & rate.MaxDigits & " " & rate.MaxDecimals & " " & rate.MinValue & " " & rate.MaxValue
