' Many controls, some at the same time, all let go of.
Option Explicit

Dim i, kept(9), sum
For i = 1 To 200
    Set kept(i Mod 10) = CreateObject("KivControls.YesNo")
    kept(i Mod 10).Value = i Mod 3
    sum = sum + kept(i Mod 10).Value
Next
For i = 0 To 9
    Set kept(i) = Nothing
Next
WScript.Echo "sum " & sum
