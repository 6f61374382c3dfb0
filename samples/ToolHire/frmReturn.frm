VERSION 5.00
Begin VB.Form frmReturn 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "A tool comes back"
   ClientHeight    =   4680
   ClientLeft      =   45
   ClientTop       =   435
   ClientWidth     =   8520
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   4680
   ScaleWidth      =   8520
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.ListBox lstOpen 
      Height          =   1620
      Left            =   120
      TabIndex        =   1
      Top             =   420
      Width           =   3615
   End
   Begin VB.OptionButton optState 
      Caption         =   "C&lean"
      Height          =   255
      Index           =   0
      Left            =   120
      TabIndex        =   2
      Top             =   2220
      Value           =   -1  'True
      Width           =   1095
   End
   Begin VB.OptionButton optState 
      Caption         =   "Dirt&y"
      Height          =   255
      Index           =   1
      Left            =   1320
      TabIndex        =   3
      Top             =   2220
      Width           =   1095
   End
   Begin VB.OptionButton optState 
      Caption         =   "Da&maged"
      Height          =   255
      Index           =   2
      Left            =   2520
      TabIndex        =   4
      Top             =   2220
      Width           =   1215
   End
   Begin VB.PictureBox picSlip 
      AutoRedraw      =   -1  'True
      BackColor       =   &H00FFFFFF&
      BeginProperty Font 
         Name            =   "Courier New"
         Size            =   8.25
         Charset         =   0
         Weight          =   400
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   3735
      Left            =   3960
      ScaleHeight     =   3675
      ScaleWidth      =   4395
      TabIndex        =   10
      TabStop         =   0   'False
      Top             =   120
      Width           =   4455
   End
   Begin VB.CommandButton cmdReturn 
      Caption         =   "&Take it back"
      Default         =   -1  'True
      Height          =   375
      Left            =   3960
      TabIndex        =   11
      Top             =   4140
      Width           =   1695
   End
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   375
      Left            =   6720
      TabIndex        =   12
      Top             =   4140
      Width           =   1695
   End
   Begin VB.Label lblHead 
      Caption         =   "&Out at the moment"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   3495
   End
   Begin VB.Label lblFee 
      Height          =   255
      Index           =   0
      Left            =   1800
      TabIndex        =   6
      Top             =   2760
      Width           =   1935
   End
   Begin VB.Label lblFee 
      Height          =   255
      Index           =   1
      Left            =   1800
      TabIndex        =   8
      Top             =   3120
      Width           =   1935
   End
   Begin VB.Label lblFee 
      BeginProperty Font 
         Name            =   "MS Sans Serif"
         Size            =   9.75
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   255
      Index           =   2
      Left            =   1800
      TabIndex        =   9
      Top             =   3480
      Width           =   1935
   End
   Begin VB.Label lblName 
      Caption         =   "Late fee"
      Height          =   255
      Index           =   0
      Left            =   120
      TabIndex        =   5
      Top             =   2760
      Width           =   1575
   End
   Begin VB.Label lblName 
      Caption         =   "Cleaning, repair"
      Height          =   255
      Index           =   1
      Left            =   120
      TabIndex        =   7
      Top             =   3120
      Width           =   1575
   End
End
Attribute VB_Name = "frmReturn"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private mCondition As ReturnCondition
Private mOldTill As Integer

' Shows what is out, with one hire chosen if its number is given.
Public Sub ShowFor(Optional ByVal HireNo As Long = 0)
    Dim i As Integer

    FillOpen
    While i < lstOpen.ListCount
        If lstOpen.ItemData(i) = HireNo Then lstOpen.ListIndex = i
        i = i + 1
    Wend
    Me.Show vbModal
End Sub

Private Sub FillOpen()
    Dim hir As clsHire

    lstOpen.Clear
    For Each hir In gBook
        If hir.State <> hsReturned Then
            lstOpen.AddItem hir.HireNo & "  " & hir.Tool.Title & ", " & hir.Customer.FullName
            lstOpen.ItemData(lstOpen.NewIndex) = hir.HireNo
        End If
    Next hir
    cmdReturn.Enabled = False
End Sub

Private Function CurrentHire() As clsHire
    If lstOpen.ListIndex >= 0 Then Set CurrentHire = gBook.Item(lstOpen.ItemData(lstOpen.ListIndex))
End Function

Private Sub lstOpen_Click()
    ShowFees
    cmdReturn.Enabled = True
    PrintSlip Hire:=CurrentHire, Target:=picSlip
End Sub

Private Sub optState_Click(Index As Integer)
    mCondition = Index
    If lstOpen.ListIndex >= 0 Then ShowFees
End Sub

Private Sub ShowFees()
    Dim varHire As Variant
    Dim DaysLate As Long, curFee As Currency

    Set varHire = CurrentHire
    DaysLate = varHire.LateDays(Now)
    curFee = gPrices.FeeFor(mCondition)
    lblFee(0).Caption = MoneyText(varHire.LateFee)
    If DaysLate > 0 Then lblFee(0).Caption = lblFee(0).Caption & " for " & PluralText(DaysLate, "day")
    lblFee(1).Caption = MoneyText(curFee)
    lblFee(2).Caption = MoneyText(varHire.Total + curFee)
End Sub

Private Sub cmdReturn_Click()
    Dim hir As clsHire
    Dim curCharge As Currency

    Set hir = CurrentHire
    curCharge = gBook.CloseHire(hir.HireNo, mCondition)
    MsgBox "To pay: " & MoneyText(curCharge) & vbCrLf & "Deposit to give back: " & _
        MoneyText(hir.Customer.Deposit), vbInformation, Me.Caption
    picSlip.Cls
    FillOpen
End Sub

Private Sub cmdClose_Click()
    Unload Me
End Sub
