VERSION 5.00
Begin VB.Form frmYard 
   Caption         =   "Yard scale"
   ClientHeight    =   2400
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4200
   LinkTopic       =   "Form1"
   ScaleHeight     =   2400
   ScaleWidth      =   4200
   StartUpPosition =   2  'CenterScreen
   Begin YardScale.ctlNeedle ndlScale 
      Height          =   1575
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   3975
   End
   Begin VB.CommandButton cmdWeigh 
      Caption         =   "&Weigh"
      Height          =   375
      Left            =   120
      TabIndex        =   1
      Top             =   1860
      Width           =   1335
   End
   Begin VB.CommandButton cmdZero 
      Caption         =   "&Zero"
      Height          =   375
      Left            =   1560
      TabIndex        =   2
      Top             =   1860
      Width           =   1335
   End
End
Attribute VB_Name = "frmYard"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private WithEvents mSand As clsSand
Private mBridge As WeighLib.Bridge
Private mBays(3) As Variant

Private Sub Form_Load()
    Set mBridge = New WeighLib.Bridge
    Set mSand = New clsSand
    gLoads.Add mSand
    gLoads.Add New clsTrailer
    ndlScale.Tag = "Yard"
    ndlScale.Reach = PlateWidth(Me.hWnd)
    StartTicks
End Sub

Private Sub Form_Unload(Cancel As Integer)
    StopTicks
End Sub

Private Sub cmdWeigh_Click()
    Dim wgh As IWeighed

    gState = ssWeighing
    Set wgh = gLoads(1)
    ndlScale.PointTo wgh.Kilos - mBridge.Tare
    RefillFrom wgh
    PrintTickets
    RinseAll mBays
    Screen.ActiveForm.Recount
    gState = ssIdle
End Sub

Private Sub cmdZero_Click()
    CallByName Me, "ResetScale", VbMethod
End Sub

Private Sub mSand_RunningLow()
    OrderSand
End Sub

Private Sub OrderSand()
    MsgBox "Sand is running low.", vbExclamation, Caption
End Sub

Public Sub Recount()
    Caption = "Yard scale, " & gLoads.Count & " loads"
End Sub

Public Sub ResetScale()
    ClearNeedle
End Sub

Private Sub ClearNeedle()
    ndlScale.PointTo 0
End Sub
