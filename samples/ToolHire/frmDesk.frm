VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmDesk 
   Caption         =   "Tool Hire"
   ClientHeight    =   6480
   ClientLeft      =   165
   ClientTop       =   855
   ClientWidth     =   9600
   LinkTopic       =   "Form1"
   ScaleHeight     =   6480
   ScaleWidth      =   9600
   StartUpPosition =   2  'CenterScreen
   Begin VB.Timer tmrClock 
      Interval        =   1000
      Left            =   9000
      Top             =   1800
   End
   Begin VB.Frame fraNew 
      Caption         =   "New hire"
      Height          =   1455
      Left            =   120
      TabIndex        =   0
      Top             =   60
      Width           =   9375
      Begin VB.ComboBox cboCustomer 
         Height          =   315
         Left            =   1200
         Style           =   2  'Dropdown List
         TabIndex        =   2
         Top             =   300
         Width           =   3615
      End
      Begin VB.ComboBox cboTool 
         Height          =   315
         Left            =   1200
         Style           =   2  'Dropdown List
         TabIndex        =   4
         Top             =   720
         Width           =   3615
      End
      Begin VB.OptionButton optRate 
         Caption         =   "One &day"
         Height          =   255
         Index           =   0
         Left            =   5040
         TabIndex        =   5
         Top             =   300
         Value           =   -1  'True
         Width           =   1335
      End
      Begin VB.OptionButton optRate 
         Caption         =   "W&eekend"
         Height          =   255
         Index           =   1
         Left            =   5040
         TabIndex        =   6
         Top             =   600
         Width           =   1335
      End
      Begin VB.OptionButton optRate 
         Caption         =   "&Week"
         Height          =   255
         Index           =   2
         Left            =   5040
         TabIndex        =   7
         Top             =   900
         Width           =   1335
      End
      Begin VB.CommandButton cmdTool 
         Caption         =   "Hire &out"
         Default         =   -1  'True
         Height          =   375
         Index           =   0
         Left            =   7680
         TabIndex        =   8
         ToolTipText     =   "Enters the hire and offers the slip"
         Top             =   300
         Width           =   1455
      End
      Begin VB.Label lblPrice 
         Alignment       =   1  'Right Justify
         Caption         =   "0.00"
         BeginProperty Font 
            Name            =   "MS Sans Serif"
            Size            =   12
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   375
         Left            =   7680
         TabIndex        =   9
         Top             =   900
         Width           =   1455
      End
      Begin VB.Label lblPrompt 
         Caption         =   "Customer"
         Height          =   255
         Index           =   0
         Left            =   240
         TabIndex        =   1
         Top             =   345
         Width           =   855
      End
      Begin VB.Label lblPrompt 
         Caption         =   "Tool"
         Height          =   255
         Index           =   1
         Left            =   240
         TabIndex        =   3
         Top             =   765
         Width           =   855
      End
   End
   Begin VB.CommandButton cmdTool 
      Caption         =   "&Return..."
      Height          =   375
      Index           =   1
      Left            =   120
      TabIndex        =   10
      Top             =   1680
      Width           =   1215
   End
   Begin VB.CommandButton cmdTool 
      Caption         =   "&Customer..."
      Height          =   375
      Index           =   2
      Left            =   1440
      TabIndex        =   11
      Top             =   1680
      Width           =   1215
   End
   Begin VB.CommandButton cmdTool 
      Caption         =   "&Slip"
      Height          =   375
      Index           =   3
      Left            =   2760
      TabIndex        =   12
      ToolTipText     =   "Prints the customer's slip once more"
      Top             =   1680
      Width           =   1215
   End
   Begin VB.TextBox txtSearch 
      Height          =   315
      Left            =   4920
      MaxLength       =   30
      TabIndex        =   14
      Top             =   1710
      Width           =   1935
   End
   Begin ToolHire.ctlLateBadge bdgLate 
      Height          =   375
      Left            =   7080
      TabIndex        =   15
      Top             =   1680
      Width           =   1695
      _ExtentX        =   2990
      _ExtentY        =   661
   End
   Begin MSComctlLib.ListView lvwHires 
      Height          =   3735
      Left            =   120
      TabIndex        =   16
      Top             =   2160
      Width           =   9375
      _ExtentX        =   16536
      _ExtentY        =   6588
      View            =   3
      LabelEdit       =   1
      LabelWrap       =   -1  'True
      HideSelection   =   0   'False
      FullRowSelect   =   -1  'True
      GridLines       =   -1  'True
      _Version        =   393217
      ForeColor       =   -2147483640
      BackColor       =   -2147483643
      BorderStyle     =   1
      Appearance      =   1
      NumItems        =   0
   End
   Begin VB.PictureBox picStatus 
      Align           =   2  'Align Bottom
      BorderStyle     =   0  'None
      Height          =   375
      Left            =   0
      ScaleHeight     =   375
      ScaleWidth      =   9600
      TabIndex        =   17
      TabStop         =   0   'False
      Top             =   6105
      Width           =   9600
      Begin VB.Label lblStatus 
         Caption         =   "Ready"
         Height          =   255
         Index           =   0
         Left            =   120
         TabIndex        =   18
         Top             =   60
         Width           =   4215
      End
      Begin VB.Label lblStatus 
         ForeColor       =   &H000000C0&
         Height          =   255
         Index           =   1
         Left            =   4440
         TabIndex        =   19
         Top             =   60
         Width           =   2775
      End
      Begin VB.Label lblStatus 
         Alignment       =   1  'Right Justify
         Height          =   255
         Index           =   2
         Left            =   7320
         TabIndex        =   20
         Top             =   60
         Width           =   2175
      End
   End
   Begin VB.Label lblPrompt 
      Alignment       =   1  'Right Justify
      Caption         =   "Fi&nd"
      Height          =   255
      Index           =   2
      Left            =   4200
      TabIndex        =   13
      Top             =   1755
      Width           =   615
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileSave 
         Caption         =   "&Save now"
         Shortcut        =   ^S
      End
      Begin VB.Menu mnuFileStock 
         Caption         =   "Print s&tock list"
      End
      Begin VB.Menu mnuFileCustomers 
         Caption         =   "Print &customers"
      End
      Begin VB.Menu mnuFileBar 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuHire 
      Caption         =   "&Hire"
      Begin VB.Menu mnuHireReturn 
         Caption         =   "&Return..."
         Shortcut        =   ^R
      End
      Begin VB.Menu mnuHireExtend 
         Caption         =   "&One more day"
         Shortcut        =   {F6}
      End
      Begin VB.Menu mnuHireMove 
         Caption         =   "&Move to the customer above"
      End
   End
   Begin VB.Menu mnuView 
      Caption         =   "&View"
      Begin VB.Menu mnuViewLate 
         Caption         =   "What's &late"
         Shortcut        =   ^L
      End
      Begin VB.Menu mnuViewOrder 
         Caption         =   "&Order by"
         Begin VB.Menu mnuViewBy 
            Caption         =   "&Number"
            Checked         =   -1  'True
            Index           =   0
         End
         Begin VB.Menu mnuViewBy 
            Caption         =   "&Customer"
            Index           =   1
         End
         Begin VB.Menu mnuViewBy 
            Caption         =   "&Tool"
            Index           =   2
         End
      End
   End
   Begin VB.Menu mnuPrices 
      Caption         =   "&Prices"
      Begin VB.Menu mnuPricesShow 
         Caption         =   "&Show"
         Shortcut        =   {F9}
      End
      Begin VB.Menu mnuPricesChange 
         Caption         =   "&Change the day rate..."
      End
   End
End
Attribute VB_Name = "frmDesk"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' The counter: who takes which tool, and what is out.

Private WithEvents mBook As clsHireBook
Attribute mBook.VB_VarHelpID = -1

Private Enum DeskButton
    dbHireOut
    dbReturn
    dbCustomer
    dbSlip
End Enum

Private Const CHECK_EVERY% = 60
Private Const KEY_SIGN = "H"

Private mKind As RateKind
Private mFilter As String
Private mClosing As Boolean

Private Sub Form_Load()
    Dim varHead As Variant, i As Integer

    Set mBook = gBook
    Me.Caption = gSettings.ShopName & " - " & DESK_TITLE & " " & CounterNo
    For Each varHead In Array("No.", "Customer", "Tool", "Out", "Due", "State")
        lvwHires.ColumnHeaders.Add , , varHead, Choose(i + 1, 800, 2300, 2400, 1400, 1400, 900)
        i = i + 1
    Next varHead
    mKind = rkDay
    FillCombos
    RefreshList
    Call LookForLate
End Sub

Private Sub Form_Resize()
    Dim sngRest As Single

    If Me.WindowState = vbMinimized Then Exit Sub
    sngRest = Me.ScaleHeight - lvwHires.Top - picStatus.Height - 60
    If sngRest > 600 Then lvwHires.Height = sngRest
    If Me.ScaleWidth > 4000 Then
        lvwHires.Width = Me.ScaleWidth - 240: fraNew.Width = lvwHires.Width
    End If
    lblStatus(2).Left = picStatus.ScaleWidth - lblStatus(2).Width - 120
End Sub

Private Sub Form_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If UnloadMode = vbFormControlMenu Then
        If MsgBox("Close the counter?", vbYesNo + vbQuestion, DESK_TITLE) = vbNo Then
            Cancel = True
            Exit Sub
        End If
    End If
    mClosing = True
    SaveBook mBook
    WriteSettings
End Sub

Private Sub Form_Unload(Cancel As Integer)
    tmrClock.Enabled = False
    Set mBook = Nothing
End Sub

Private Sub tmrClock_Timer()
    Static intTicks As Integer

    lblStatus(2).Caption = ClockText
    intTicks = intTicks + 1
    If intTicks >= CHECK_EVERY% Then
        intTicks = 0
        LookForLate
    End If
End Sub

Private Sub cmdTool_Click(Index As Integer)
    Select Case Index
        Case dbHireOut
            HireOut
        Case dbReturn
            TakeBack
        Case dbCustomer
            OpenCustomer
        Case dbSlip
            If Not SelectedHire Is Nothing Then PrintSlip SelectedHire
    End Select
End Sub

Private Sub optRate_Click(Index As Integer)
    mKind = Index
    ShowPrice
End Sub

Private Sub cboTool_Click()
    ShowPrice
End Sub

Private Sub txtSearch_Change()
    mFilter = LCase$(Trim$(txtSearch.Text))
    RefreshList
End Sub

Private Sub lvwHires_DblClick()
    TakeBack
End Sub

Private Sub lvwHires_ItemClick(ByVal Item As MSComctlLib.ListItem)
    Dim hir As clsHire

    Set hir = mBook.Item(Item.Key)
    Say Item.SubItems(2) & ": " & MoneyText(hir.Total) & " so far"
End Sub

Private Sub bdgLate_Click()
    mnuViewLate_Click
End Sub

Private Sub mnuFileSave_Click()
    SaveBook mBook
    Say "Saved at " & Format$(Time, "hh:nn")
End Sub

Private Sub mnuFileStock_Click()
    PrintAll "Stock", mBook.Tools
End Sub

Private Sub mnuFileCustomers_Click()
    PrintAll Items:=mBook.Customers, Title:="Customers"
End Sub

Private Sub mnuFileExit_Click()
    Unload Me
End Sub

Private Sub mnuHireReturn_Click()
    TakeBack
End Sub

Private Sub mnuHireExtend_Click()
    Dim hir As clsHire

    Set hir = SelectedHire
    If hir Is Nothing Then Exit Sub
    On Error GoTo TooLong
    hir.DueOn = DateAdd("d", 1, hir.DueOn)
    RefreshList
    Exit Sub

TooLong:
    Say Err.Description, Beeps:=True
End Sub

Private Sub mnuHireMove_Click()
    Dim hir As clsHire

    Set hir = SelectedHire
    If hir Is Nothing Or cboCustomer.ListIndex < 0 Then Exit Sub
    Set hir.Customer = mBook.Customers(cboCustomer.ListIndex + 1)
    RefreshList
End Sub

Private Sub mnuViewLate_Click()
    mnuViewLate.Checked = Not mnuViewLate.Checked
    RefreshList
End Sub

Private Sub mnuViewBy_Click(Index As Integer)
    Dim mnu As Object

    For Each mnu In mnuViewBy
        mnu.Checked = (mnu.Index = Index)
    Next mnu
    lvwHires.SortKey = Index
    lvwHires.Sorted = True
End Sub

Private Sub mnuPricesShow_Click()
    MsgBox "Code" & vbTab & "Day" & vbTab & "Weekend" & vbTab & "Week" & vbCrLf & _
        gPrices.PriceText, vbInformation, DESK_TITLE
End Sub

Private Sub mnuPricesChange_Click()
    Dim strCode As String, strRate As String

    strCode = UCase$(InputBox("Which tool?", DESK_TITLE, "DR10"))
    If mBook.FindTool(strCode) Is Nothing Then Exit Sub
    strRate = InputBox("New day rate for " & strCode, DESK_TITLE, gPrices.DayRate(strCode))
    If IsNumeric(strRate) Then gPrices.DayRate(strCode) = CCur(strRate)
    ShowPrice
End Sub

Private Sub mBook_HireOpened(ByVal Hire As clsHire)
    Say "No. " & Hire.HireNo & " for " & Hire.Customer.FullName
    RefreshList KEY_SIGN & Hire.HireNo
End Sub

Private Sub mBook_HireClosed(ByVal Hire As clsHire, ByVal Charge As Currency)
    Say Hire.Tool.Title & " is back, " & MoneyText(Charge) & " paid"
    RefreshList
End Sub

Private Sub mBook_LateFound(ByVal Hire As clsHire, ByVal Days As Long, Cancel As Boolean)
    lblStatus(1).Caption = Hire.Customer.FullName & ": " & PluralText(Days, "day") & " late"
    Cancel = mClosing
End Sub

Private Sub HireOut()
    Dim hir As clsHire
    Dim lngAnswer As VbMsgBoxResult

    If cboCustomer.ListIndex < 0 Or cboTool.ListIndex < 0 Then
        Say "Choose a customer and a tool first.", True
        Exit Sub
    End If
    On Error GoTo NotPossible
    LockDesk True
    Set hir = mBook.OpenHire(Customer:=mBook.Customers(cboCustomer.ListIndex + 1), _
        Tool:=mBook.Tools(cboTool.ListIndex + 1), Kind:=mKind)
    If hir.Tool.NeedsBriefing Then
        MsgBox "Don't forget the ""how to stand on it"" sheet.", vbInformation, DESK_TITLE
    End If
    lngAnswer = MsgBox("Print the slip now?", vbYesNo + vbQuestion, DESK_TITLE)
    If lngAnswer = vbYes Then PrintSlip hir
    LockDesk False
    Exit Sub

NotPossible:
    MsgBox Err.Description, vbExclamation, DESK_TITLE
    LockDesk False
End Sub

Private Sub TakeBack()
    Dim hir As clsHire

    Set hir = SelectedHire
    If hir Is Nothing Then
        frmReturn.ShowFor
    Else
        frmReturn.ShowFor hir.HireNo
    End If
End Sub

Private Sub OpenCustomer()
    Dim cus As clsCustomer

    If cboCustomer.ListIndex >= 0 Then Set cus = mBook.Customers(cboCustomer.ListIndex + 1)
    Set cus = frmCustomer.EditCustomer(cus)
    If cus Is Nothing Then Exit Sub
    mBook.TakeCustomer cus
    FillCombos
    RefreshList
End Sub

Private Sub FillCombos()
    Dim cus As clsCustomer, tol As clsTool

    cboCustomer.Clear: cboTool.Clear
    For Each cus In mBook.Customers
        cboCustomer.AddItem cus.FullName
    Next cus
    For Each tol In mBook.Tools
        cboTool.AddItem tol.Code & "  " & tol.Title
    Next tol
End Sub

Private Sub RefreshList(Optional ByVal KeyToShow As String)
    Dim hir As clsHire
    Dim itm As MSComctlLib.ListItem

    lvwHires.ListItems.Clear
    For Each hir In mBook
        If IsWanted(hir) Then
            Set itm = lvwHires.ListItems.Add(, KEY_SIGN & hir.HireNo, CStr(hir.HireNo))
            With itm
                .SubItems(1) = hir.Customer.FullName
                .SubItems(2) = hir.Tool.Title
                .SubItems(3) = Format$(hir.OutOn, "dd/mm/yyyy")
                .SubItems(4) = Format$(hir.DueOn, "dd/mm hh:nn")
                .SubItems(5) = StateName(hir.State)
                If hir.State = hsLate Then .ForeColor = &HC0&
                If .Key = KeyToShow Then .Selected = True
            End With
        End If
    Next hir
End Sub

Private Function IsWanted(ByVal Hire As clsHire) As Boolean
    If mnuViewLate.Checked And Hire.State <> hsLate Then Exit Function
    If mFilter = "" Then
        IsWanted = True
    Else
        IsWanted = LCase$(Hire.Customer.FullName & " " & Hire.Tool.Title) Like "*" & mFilter & "*"
    End If
End Function

Private Function SelectedHire() As clsHire
    If lvwHires.SelectedItem Is Nothing Then Exit Function
    Set SelectedHire = mBook.Item(lvwHires.SelectedItem.Key)
End Function

Private Sub ShowPrice()
    Dim tol As clsTool

    If cboTool.ListIndex < 0 Then Exit Sub
    Set tol = mBook.Tools(cboTool.ListIndex + 1)
    lblPrice.Caption = MoneyText(gPrices.RateFor(tol.Code, mKind))
End Sub

Private Sub LookForLate()
    bdgLate.Days = mBook.CheckLate
    If bdgLate.Days = 0 Then lblStatus(1).Caption = ""
End Sub

' Everything that can be switched off is, the badge included.
Private Sub LockDesk(ByVal Locked As Boolean)
    Dim ctl As Object

    On Error Resume Next
    For Each ctl In Me.Controls
        ctl.Enabled = Not Locked
    Next ctl
End Sub

Private Sub Say(ByVal Text As String, Optional ByVal Beeps As Boolean = False)
    lblStatus(0).Caption = Text
    If Beeps Then Beep
End Sub
