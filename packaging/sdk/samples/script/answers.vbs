' Makes one control of each class, late-bound, as any script host does.
'     cscript //nologo answers.vbs
Option Explicit

Dim answer, number, day, amount, rate, items, code, button, picture

Set answer = CreateObject("KivControls.YesNo")
answer.Value = 1
WScript.Echo "YesNo " & answer.Text

Set number = CreateObject("KivControls.NumberBox")
number.Style = 0
number.Value = "123-45-6789"
WScript.Echo "NumberBox " & number.Value

Set day = CreateObject("KivControls.DateBox")
day.Value = DateSerial(2024, 4, 15)
WScript.Echo "DateBox " & Year(day.Value)

Set amount = CreateObject("KivControls.CurrencyBox")
amount.Value = CCur(1234)
WScript.Echo "CurrencyBox " & amount.Value

Set rate = CreateObject("KivControls.PercentBox")
rate.Value = 0.075
WScript.Echo "PercentBox " & IsNull(rate.Value)

Set items = CreateObject("KivControls.ChkCombo")
items.AddItem "W-2"
items.AddItem "1099"
items.ListIndex = 1
WScript.Echo "ChkCombo " & items.Text

Set code = CreateObject("KivControls.EnumList")
code.TableName = "Filing Status"
WScript.Echo "EnumList " & code.TableName

Set button = CreateObject("KivControls.PicCommand")
button.Caption = "&Details"
WScript.Echo "PicCommand " & button.Caption

Set picture = CreateObject("KivControls.PicLite")
picture.MaskColor = &HFF00FF
WScript.Echo "PicLite " & picture.MaskColor
