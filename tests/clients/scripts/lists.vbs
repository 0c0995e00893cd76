' A ChkCombo, as a script fills and reads it. One line of output each.
Option Explicit

Dim combo, i
Set combo = CreateObject("KivControls.ChkCombo")

Sub Report(what)
    WScript.Echo what & " " & Err.Number
    Err.Clear
End Sub

WScript.Echo "class " & TypeName(combo)
WScript.Echo "empty " & combo.ListCount & " " & combo.ListIndex & " [" & combo & "]"
combo.AddItem "W-2"
combo.AddItem "1099", -1
combo.AddItem "1040", 0
WScript.Echo "added " & combo.ListCount & " " & combo.NewIndex & " " & TypeName(combo.NewIndex)
combo.ListCompletionStatus(1) = 2
combo.ListCompletionStatus(2) = 1
combo.ItemData(2) = 1099
combo.List(0) = "Form 1040"
For i = 0 To combo.ListCount - 1
    WScript.Echo combo.List(i) & " " & combo.ListCompletionStatus(i) & " " & combo.ItemData(i)
Next
combo.ListIndex = 1
WScript.Echo "selected " & combo.ListIndex & " " & combo & " " & combo.PreviousIndex
combo.RemoveItem 0
WScript.Echo "removed " & combo.ListIndex & " " & combo.Text & " " & combo.ListCompletionStatus(0)

On Error Resume Next
combo.AddItem "x", 3
Report "beyond the end"
combo.AddItem "x", 40000
Report "too large an index"
combo.RemoveItem -1
Report "before the start"
combo.ListIndex = 2
Report "selecting what is not there"
i = combo.List(2)
Report "reading what is not there"
combo.Text = "x"
Report "a read-only property"
i = combo.List
Report "without an index"
On Error GoTo 0

combo.Clear
WScript.Echo "cleared " & combo.ListCount & " " & combo.ListIndex
