VERSION 5.00
Object = "{3E649255-873E-11D3-BB17-00105A16D8EF}#1.0#0"; "KivCtls.ocx"
Begin VB.Form Answers
   Caption         =   "Personal information"
   ClientHeight    =   1500
   ClientWidth     =   4800
   LinkTopic       =   "Form1"
   ScaleHeight     =   1500
   ScaleWidth      =   4800
   Begin KivControls.YesNo ynResident
      Height          =   300
      Left            =   2880
      TabIndex        =   1
      Top             =   240
      Width           =   1800
   End
   Begin VB.Frame fraStates
      Caption         =   "States"
      Enabled         =   0   'False
      Height          =   600
      Left            =   240
      TabIndex        =   2
      Top             =   720
      Width           =   4440
   End
   Begin VB.Label lblResident
      Caption         =   "Resident for the whole &year?"
      Height          =   300
      Left            =   240
      TabIndex        =   0
      Top             =   270
      Width           =   2520
   End
End
Attribute VB_Name = "Answers"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub ynResident_Click(Cancel As Boolean)
    ' ynResident.Value already reads as the answer that the user is about to give.
    If ynResident.Value = No Then Cancel = (MsgBox("Really?", vbYesNo) = vbNo)
End Sub

Private Sub ynResident_Change()
    fraStates.Enabled = (ynResident.Value = Yes)
End Sub
