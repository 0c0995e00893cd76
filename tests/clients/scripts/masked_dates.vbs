' A DateBox, as a script reads and writes it. One line of output each.
Option Explicit

Dim entry
Set entry = CreateObject("KivControls.DateBox")

Sub Report(what)
    WScript.Echo what & " " & Err.Number & " " & entry.Text
    Err.Clear
End Sub

WScript.Echo "class " & TypeName(entry)
entry.Value = Null
WScript.Echo "blank " & IsNull(entry.Value) & " [" & entry.Text & "] " & entry.IsValidInput
WScript.Echo "style " & entry.Style & " " & entry.AllowVarious
entry.Value = DateSerial(2001, 1, 5)
WScript.Echo "date " & entry & " " & TypeName(entry.Value)
entry.Value = "3/15/2001"
WScript.Echo "text " & entry.Value
entry.Value = Empty
WScript.Echo "empty " & IsNull(entry.Value)
entry.Value = DateSerial(2005, 1, 1)
WScript.Echo "no century " & entry.Text

On Error Resume Next
entry.Value = "02/29/01"
Report "impossible"
entry.Value = "99/99/99"
Report "various"
entry.AllowVarious = True
entry.Value = "99/99/99"
Report "various allowed"
entry.Text = "01/05/01"
Report "a read-only property"
entry.MaxDate = "never"
Report "words for a bound"
On Error GoTo 0

entry.Style = 2
entry.Value = DateSerial(2005, 1, 1)
WScript.Echo "outside " & entry.Text
entry.MaxDate = DateSerial(2030, 12, 31)
entry.MinDate = DateSerial(1850, 1, 1)
WScript.Echo "bounds " & Year(entry.MinDate) & " " & Year(entry.MaxDate)
entry.Value = DateSerial(1860, 7, 4)
WScript.Echo "long ago " & entry.Value & " " & entry.IsValidInput
entry.Style = 5
entry.InitStyle
entry.Value = "1999"
WScript.Echo "year " & entry.Value
