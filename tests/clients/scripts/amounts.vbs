' A CurrencyBox, as a script reads and writes it. One line of output each.
Option Explicit

Dim amount
Set amount = CreateObject("KivControls.CurrencyBox")

Sub Report(what)
    WScript.Echo what & " " & Err.Number
    Err.Clear
End Sub

WScript.Echo "class " & TypeName(amount)
WScript.Echo "blank " & IsNull(amount.Value) & " [" & amount.Text & "] " & amount.IsValidInput
WScript.Echo "counts " & amount.NumIntDigits & " " & amount.NumDecDigits & " " & amount.AllowRounding
WScript.Echo "range " & amount.MinValue & " " & amount.MaxValue & " " & TypeName(amount.MaxValue)
amount.Value = 1234.5
WScript.Echo "rounded " & amount & " " & TypeName(amount.Value) & " " & amount.Text
amount.AllowRounding = False
amount.Value = 1234.5
WScript.Echo "cents " & amount.Value & " " & amount.Text
amount.Value = "1,000"
WScript.Echo "as text " & amount.Value
amount.Value = Null
WScript.Echo "null " & IsNull(amount.Value)
amount.Value = "words"
WScript.Echo "words " & IsNull(amount.Value)
amount.NumIntDigits = 5
WScript.Echo "range " & amount.MinValue & " " & amount.MaxValue
amount.Value = 100000
WScript.Echo "outside " & amount.Value & " " & amount.IsValidInput(False)

On Error Resume Next
amount.NumDecDigits = 5
Report "too many decimals"
amount.NumIntDigits = 0
Report "no digits"
amount.MaxValue = 654321
Report "too long a bound"
amount.MaxValue = amount.MinValue
Report "no range"
amount.MinValue = "words"
Report "words for a bound"
amount.NumIntDigits = "many"
Report "words for a count"
amount.Text = "5"
Report "a read-only property"
On Error GoTo 0
WScript.Echo "afterwards " & amount.NumIntDigits & " " & amount.NumDecDigits & " " & amount.MaxValue
