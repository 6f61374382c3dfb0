VERSION 5.00
Begin VB.Form frmCustomer 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Customer"
   ClientHeight    =   3900
   ClientLeft      =   45
   ClientTop       =   435
   ClientWidth     =   5400
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   3900
   ScaleWidth      =   5400
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.TextBox txtField 
      Height          =   315
      Index           =   0
      Left            =   1320
      MaxLength       =   60
      TabIndex        =   1
      Top             =   180
      Width           =   3855
   End
   Begin VB.TextBox txtField 
      Height          =   315
      Index           =   1
      Left            =   1320
      MaxLength       =   20
      TabIndex        =   3
      Top             =   600
      Width           =   2055
   End
   Begin VB.TextBox txtField 
      Height          =   315
      Index           =   2
      Left            =   1320
      TabIndex        =   5
      Top             =   1020
      Width           =   3855
   End
   Begin VB.TextBox txtField 
      Height          =   315
      Index           =   3
      Left            =   1320
      TabIndex        =   6
      Top             =   1380
      Width           =   3855
   End
   Begin VB.TextBox txtField 
      Height          =   315
      Index           =   4
      Left            =   1320
      TabIndex        =   7
      Top             =   1740
      Width           =   3855
   End
   Begin VB.Frame fraTerms 
      Caption         =   "Terms"
      Height          =   1095
      Left            =   120
      TabIndex        =   8
      Top             =   2160
      Width           =   5055
      Begin VB.CheckBox chkTrade 
         Caption         =   "&Trade account"
         Height          =   255
         Left            =   240
         TabIndex        =   9
         Top             =   300
         Width           =   1695
      End
      Begin VB.CheckBox chkCover 
         Caption         =   "&Damage cover"
         Height          =   255
         Left            =   240
         TabIndex        =   10
         Top             =   660
         Width           =   1695
      End
      Begin VB.TextBox txtDeposit 
         Alignment       =   1  'Right Justify
         Height          =   315
         Left            =   3600
         TabIndex        =   12
         Top             =   360
         Width           =   1215
      End
      Begin VB.Label lblDeposit 
         Caption         =   "De&posit (£)"
         Height          =   255
         Left            =   2520
         TabIndex        =   11
         Top             =   405
         Width           =   975
      End
   End
   Begin VB.CommandButton cmdOk 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   2640
      TabIndex        =   13
      Top             =   3420
      Width           =   1215
   End
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Cancel"
      Height          =   375
      Left            =   3960
      TabIndex        =   14
      Top             =   3420
      Width           =   1215
   End
   Begin VB.Label lblField 
      Caption         =   "&Name"
      Height          =   255
      Index           =   0
      Left            =   120
      TabIndex        =   0
      Top             =   225
      Width           =   1095
   End
   Begin VB.Label lblField 
      Caption         =   "P&hone"
      Height          =   255
      Index           =   1
      Left            =   120
      TabIndex        =   2
      Top             =   645
      Width           =   1095
   End
   Begin VB.Label lblField 
      Caption         =   "&Address"
      Height          =   255
      Index           =   2
      Left            =   120
      TabIndex        =   4
      Top             =   1065
      Width           =   1095
   End
End
Attribute VB_Name = "frmCustomer"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Const FIRST_ADDRESS = 2

Private mCustomer As clsCustomer
Private mAccepted As Boolean

' Shows a customer, or an empty sheet for a new one. Gives nothing when it was cancelled.
Public Function EditCustomer(Optional ByVal Customer As clsCustomer) As clsCustomer
    mAccepted = False
    If Customer Is Nothing Then
        Set mCustomer = New clsCustomer
    Else
        Set mCustomer = Customer
    End If
    ShowFields
    Me.Show vbModal
    If mAccepted Then Set EditCustomer = mCustomer
    Unload Me
End Function

Private Sub ShowFields()
    Dim i As Integer

    With mCustomer
        txtField(0).Text = .FullName
        txtField(1).Text = .Phone
        For i = 1 To 3
            txtField(FIRST_ADDRESS + i - 1).Text = .AddressLine(i)
        Next i
        chkTrade.Value = IIf(.IsTrade, vbChecked, vbUnchecked)
        chkCover.Value = IIf(.HasCover, vbChecked, vbUnchecked)
        txtDeposit.Text = MoneyText(.Deposit, WithSign:=False)
        If .HireCount > 0 Then fraTerms.Caption = "Terms (" & PluralText(.HireCount, "tool") & " out)"
    End With
End Sub

Private Sub StoreFields()
    Dim i As Integer, curLeast As Currency

    With mCustomer
        .FullName = txtField(0).Text
        .Phone = txtField(1).Text
        For i = 1 To 3
            .AddressLine(i) = txtField(FIRST_ADDRESS + i - 1).Text
        Next i
        .IsTrade = (chkTrade.Value = vbChecked)
        .HasCover = (chkCover.Value = vbChecked)
        ' without cover the deposit is at least two days of the dearest tool
        If Not .HasCover Then
            With gPrices
                curLeast = .DayRate("SC07") * 2
            End With
        End If
        .Deposit = CCur(Val(txtDeposit.Text))
        If .Deposit < curLeast And Not .IsTrade Then .Deposit = curLeast
    End With
End Sub

Private Sub cmdOk_Click()
    On Error GoTo Refused
    StoreFields
    mAccepted = True
    Me.Hide
    Exit Sub

Refused:
    MsgBox Err.Description, vbExclamation, Me.Caption
    txtField(0).SetFocus
End Sub

Private Sub cmdCancel_Click()
    Me.Hide
End Sub

Private Sub txtField_GotFocus(Index As Integer)
    With txtField(Index)
        .SelStart = 0
        .SelLength = Len(.Text)
    End With
End Sub

Private Sub txtDeposit_KeyPress(KeyAscii As Integer)
    Select Case KeyAscii
        Case vbKey0 To vbKey9, vbKeyBack, 46
        Case Else
            KeyAscii = 0
    End Select
End Sub

' The button has gone from the form, its code has not.
Private Sub cmdPhoneBook_Click()
    Dim dblTask As Double

    dblTask = Shell("dialer.exe " & mCustomer.Phone, vbNormalFocus)
End Sub
