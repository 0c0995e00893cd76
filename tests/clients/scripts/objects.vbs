' Objects where values are expected: each stands for its default member.
Option Explicit

Class Field
    Public Content
    Public Default Property Get Value()
        Value = Content
    End Property
End Class

Class Plain
    Public Content
End Class

Sub Report(name, value)
    WScript.Echo name & " " & value
End Sub

' The script hands the object over as it is when it comes as the result of an expression.
Sub Attempt(name, box, object)
    On Error Resume Next
    box.Value = object
    Report name, Err.Number & " " & box.Value
    On Error GoTo 0
End Sub

Dim box, held, plainObject
Set box = CreateObject("KivControls.NumberBox")
Set held = New Field
Set plainObject = New Plain
box.Value = "987-65-4321"
held.Content = "123-45-6789"
Attempt "field", box, held
Attempt "without a default member", box, plainObject
Attempt "nothing", box, Nothing
held.Content = "12"
Attempt "no such number", box, held

Dim colour
Set colour = CreateObject("KivControls.YesNo")
colour.BackColor = &H80000005
Report "same colour", colour.BackColor = &H80000005
Report "its type", TypeName(colour.BackColor)
colour.YesText = "True"
colour.Text = True
Report "text of true", colour.Value
