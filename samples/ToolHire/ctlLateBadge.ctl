VERSION 5.00
Begin VB.UserControl ctlLateBadge 
   BackColor       =   &H00C0FFC0&
   ClientHeight    =   375
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   1695
   ScaleHeight     =   375
   ScaleWidth      =   1695
   Begin VB.Label lblDays 
      Alignment       =   2  'Center
      BackStyle       =   0  'Transparent
      Caption         =   "nothing late"
      BeginProperty Font 
         Name            =   "MS Sans Serif"
         Size            =   8.25
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   255
      Left            =   60
      TabIndex        =   0
      Top             =   75
      Width           =   1575
   End
   Begin VB.Shape shpFrame 
      BorderColor     =   &H00808080&
      Height          =   375
      Left            =   0
      Top             =   0
      Width           =   1695
   End
End
Attribute VB_Name = "ctlLateBadge"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
Option Explicit

' A badge that is green while all is well and counts the days when it isn't.

Public Event Click()

Private Const DEF_DAYS As Long = 0

Private mDays As Long
Private mLateColor As OLE_COLOR

Private Sub UserControl_InitProperties()
    mDays = DEF_DAYS
    mLateColor = CLR_LATE
    ShowDays
End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
    mDays = PropBag.ReadProperty("Days", DEF_DAYS)
    mLateColor = PropBag.ReadProperty("LateColor", CLR_LATE)
    UserControl.Enabled = PropBag.ReadProperty("Enabled", True)
    ShowDays
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
    Call PropBag.WriteProperty("Days", mDays, DEF_DAYS)
    Call PropBag.WriteProperty("LateColor", mLateColor, CLR_LATE)
    Call PropBag.WriteProperty("Enabled", UserControl.Enabled, True)
End Sub

Private Sub UserControl_Resize()
    shpFrame.Move 0, 0, ScaleWidth, ScaleHeight
    lblDays.Move 60, (ScaleHeight - lblDays.Height) \ 2, ScaleWidth - 120
End Sub

Private Sub UserControl_Click()
    RaiseEvent Click
End Sub

Private Sub lblDays_Click()
    RaiseEvent Click
End Sub

Public Property Get Days() As Long
Attribute Days.VB_Description = "The worst delay of all hires, in days"
    Days = mDays
End Property

Public Property Let Days(ByVal New_Days As Long)
    If New_Days = mDays Then Exit Property
    mDays = New_Days
    PropertyChanged "Days"
    ShowDays
End Property

Public Property Get LateColor() As OLE_COLOR
    LateColor = mLateColor
End Property

Public Property Let LateColor(ByVal New_LateColor As OLE_COLOR)
    mLateColor = New_LateColor
    PropertyChanged "LateColor"
    ShowDays
End Property

Public Property Get Enabled() As Boolean
Attribute Enabled.VB_UserMemId = -514
    Enabled = UserControl.Enabled
End Property

Public Property Let Enabled(ByVal New_Enabled As Boolean)
    UserControl.Enabled = New_Enabled
    PropertyChanged "Enabled"
End Property

Private Sub ShowDays()
    If mDays > 0 Then
        lblDays.Caption = PluralText(mDays, "day") & " late"
        UserControl.BackColor = mLateColor
    Else
        lblDays.Caption = "nothing late"
        UserControl.BackColor = CLR_CALM
    End If
End Sub
