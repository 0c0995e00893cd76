' A NumberBox, as a script reads and writes it. One line of output each.
Option Explicit

Dim number, digits, ssn
ssn = "123-45-6789"
Set number = CreateObject("KivControls.NumberBox")

Sub Report(what)
    WScript.Echo what & " " & Err.Number
    Err.Clear
End Sub

WScript.Echo "class " & TypeName(number)
WScript.Echo "blank " & IsNull(number.Value) & " [" & number.Text & "] " & number.IsValidInput
WScript.Echo "style " & number.Style & " " & number.MaxLength
number.Value = ssn
WScript.Echo "whole " & number & " " & TypeName(number.Value)
number.Value = Null
WScript.Echo "null " & IsNull(number.Value)
number.Text = ssn
WScript.Echo "by text " & number.Text
number.Value = ""
WScript.Echo "empty " & IsNull(number.Value)

On Error Resume Next
number.Value = ssn
number.Value = "123456789"
Report "without dashes"
number.Value = 123456789
Report "a number"
number.Text = "words"
Report "words"
number.hwnd = 1
Report "a read-only property"
number.Style = "SSN"
Report "words for a style"
On Error GoTo 0
WScript.Echo "afterwards " & number.Value

number.MaxLength = 4
WScript.Echo "length " & number.MaxLength
number.Style = 1
WScript.Echo "discarded " & IsNull(number.Value) & " " & number.MaxLength
number.Style = 2
number.Value = "011000015"
WScript.Echo "routing " & number.Value & " " & number.IsValidInput(False)
number.Style = 3
number.MaxLength = 4
number.Value = 12
WScript.Echo "custom " & number.Value & " " & TypeName(number.Value)
