' A method with an optional argument by reference, given in every way that a script knows.
Option Explicit

Dim answer
Set answer = CreateObject("KivControls.YesNo")

answer.DrawFocusState
WScript.Echo "left out"
answer.DrawFocusState 2
WScript.Echo "by value"
answer.DrawFocusState "1"
WScript.Echo "as text"
Dim target
target = 2
answer.DrawFocusState target
WScript.Echo "variable " & target
Dim nothingYet
answer.DrawFocusState nothingYet
WScript.Echo "empty variable"
Call answer.DrawFocusState(1)
WScript.Echo "with parentheses"
