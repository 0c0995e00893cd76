' An EnumList whose database is a class of the script. One line of output each.
Option Explicit

Class Field
    Public Name
    Public Property Get Value
        If fields_.Broken Then Err.Raise 3167
        If Name = "Enum Text" Then Value = fields_.Text
    End Property

    Private fields_
    Public Sub Init(fields, column)
        Set fields_ = fields
        Name = column
    End Sub
End Class

Class Fields
    Public Text
    Public Broken
    Public Function Item(column)
        Set Item = New Field
        Item.Init Me, column
    End Function
End Class

Class Recordset
    Private columns_
    Private found_
    Private database_
    Public Sub Init(database, found, columns)
        Set database_ = database
        found_ = found
        Set columns_ = columns
    End Sub
    Public Property Get EOF
        EOF = Not found_
    End Property
    Public Function Fields(column)
        Set Fields = columns_.Item(column)
    End Function
    Public Sub Close
        database_.StillOpen = database_.StillOpen - 1
    End Sub
End Class

Class Database
    Public Queries
    Public LastQuery
    Public LastKind
    Public StillOpen
    Public Fails
    Public FieldsFail
    Public Function OpenRecordset(query, kind)
        Dim columns
        Queries = Queries + 1
        LastQuery = query
        LastKind = kind
        If Fails Then Err.Raise 3061, "Database", "Too few parameters."
        Set columns = New Fields
        columns.Broken = FieldsFail
        If InStr(query, "[Enum Code] = '7'") > 0 Then columns.Text = "Pears"
        If InStr(query, "[Enum Code] = '8'") > 0 Then columns.Text = Null
        Set OpenRecordset = New Recordset
        OpenRecordset.Init Me, Not IsEmpty(columns.Text), columns
        StillOpen = StillOpen + 1
    End Function
End Class

Dim list, codes
Set list = CreateObject("KivControls.EnumList")
Set codes = New Database

Sub Report(what)
    WScript.Echo what & " " & Err.Number
    Err.Clear
End Sub

Sub Show(what)
    WScript.Echo what & " [" & list.EnumCode & "] [" & list.EnumText & "] " & codes.Queries & " " & codes.StillOpen
End Sub

codes.Queries = 0
codes.StillOpen = 0
codes.Fails = False
codes.FieldsFail = False
WScript.Echo "class " & TypeName(list) & " " & IsNull(list.BoundEnumCode)
Set list.Database = codes
list.StateCode = "MA"
list.TableName = "Fruit"
list.EnumCode = "7"
Show "a code"
list.DisplayStyle = 1
Show "a description"
WScript.Echo codes.LastKind & " " & codes.LastQuery
list.EnumCode = "9"
Show "not in the table"
list.EnumCode = "8"
Show "no text"
list.BoundEnumCode = 7
Show "bound"
WScript.Echo TypeName(list.BoundEnumCode) & " " & list.BoundEnumCode
list.BoundEnumCode = Null
Show "none"
WScript.Echo "null " & IsNull(list.BoundEnumCode)

On Error Resume Next
codes.Fails = True
list.EnumCode = "7"
Report "no record set"
Show "unread"
codes.Fails = False
codes.FieldsFail = True
list.EnumCode = "7"
Report "no field"
Show "code set"
codes.FieldsFail = False
list.EnumText = "Pears"
Report "a read-only property"
Set codes = list.Database
Report "a database that is read"
list.DisplayStyle = "Code"
Report "words for a style"
list.SortListBy = Null
Report "null for an order"
On Error GoTo 0

Set list.Database = Nothing
list.EnumCode = "8"
Show "without a database"
list.DisplayStyle = 0
Show "a code again"
