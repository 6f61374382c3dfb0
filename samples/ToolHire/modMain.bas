Attribute VB_Name = "modMain"
Option Explicit

' Start-up, and what every part of the desk shares: settings, the hire book,
' the price list, and the small questions asked everywhere ("is it late?").

#Const CLOCK_SECONDS = 1

#If TRADEDESK Then
Public Const DESK_TITLE As String = "Trade counter"
#Else
Public Const DESK_TITLE As String = "Counter"
#End If

Public Const MAX_HIRE_DAYS As Long = 28
Public Const GRACE_HOURS = 2, LATE_FACTOR = 1.5
Public Const CLR_LATE As Long = &HC0C0FF
Public Const CLR_CALM As Long = &HC0FFC0
Public Const ERR_DESK As Long = 513
Private Const TICKS_PER_SECOND& = 1000
Private Const OLD_VAT_RATE = 0.175

Public Enum RateKind
    rkDay = 0
    rkWeekend
    rkWeek
End Enum

Public Enum HireState
    hsOpen
    hsLate
    hsReturned
    hsLost
End Enum

Private Enum StartStep
    ssSettings = 1
    ssPrices
    ssBook
    ssDone
End Enum

Public Type DeskSettings
    CounterNo As Integer
    ShopName As String
    DataDir As String
    LastSlip As Long
    FaxNumber As String
End Type

Public Declare Function GetTickCount Lib "kernel32" () As Long
Private Declare Function GetUserName Lib "advapi32.dll" Alias "GetUserNameA" _
    (ByVal lpBuffer As String, nSize As Long) As Long

Public gSettings As DeskSettings
Public gBook As clsHireBook
Public gPrices As clsPriceList

Private mStarted As Long, mStep As StartStep
Private mLegacyDrawer As Boolean
Dim mTraceOn, mTraceCount As Long

Public Sub Main()
    Dim strUser$, n%

    On Error GoTo StartFailed
    mStarted = GetTickCount
    mTraceOn = (InStr(1, Command$, "/trace", vbTextCompare) > 0)
    If App.PrevInstance Then
        MsgBox "The desk is open already; look for it in the task bar.", vbExclamation, DESK_TITLE
        Exit Sub
    End If

    mStep = ssSettings
    ReadSettings
    mStep = ssPrices
    Set gPrices = New clsPriceList
    gPrices.LoadDefaults
    mStep = ssBook
    Set gBook = New clsHireBook
    n% = LoadBook(gBook)
    mStep = ssDone

    strUser$ = UserName
    TraceLine "Started by", strUser$, n%, (GetTickCount - mStarted) / TICKS_PER_SECOND
    frmDesk.Show
    Exit Sub

StartFailed:
    MsgBox "The desk can't be opened. It stopped at: " & StepName(mStep) & vbCrLf & _
        vbCrLf & Err.Description, vbCritical, DESK_TITLE
End Sub

' The number of the counter this desk stands at. It is printed on each slip.
Public Property Get CounterNo() As Integer
    CounterNo = gSettings.CounterNo
End Property

Public Property Let CounterNo(ByVal NewNo As Integer)
    If NewNo < 1 Or NewNo > 99 Then
        Err.Raise vbObjectError + ERR_DESK, "modMain", "There is no counter """ & NewNo & """."
    End If
    gSettings.CounterNo = NewNo
End Property

' Started days beyond the due date. The first hours are a favour of the house. _
  Without a second date the question is asked for this very moment.
Public Function DaysLate(ByVal DueOn As Date, Optional ByVal OnDay As Date = #12:00:00 AM#) As Long
    Dim lngHours As Long

    If OnDay = #12:00:00 AM# Then OnDay = Now
    lngHours = DateDiff("h", DueOn, OnDay)
    If lngHours > GRACE_HOURS Then DaysLate = (lngHours - 1) \ 24 + 1
End Function

Public Function DaysFor(ByVal Kind As RateKind) As Long
    Select Case Kind
        Case rkWeekend: DaysFor = 3
        Case rkWeek: DaysFor = 7
        Case Else: DaysFor = 1
    End Select
End Function

Public Function StateName(ByVal State As HireState) As String
    Select Case State
        Case hsOpen
            StateName = "out"
        Case hsLate
            StateName = "LATE"
        Case hsReturned
            StateName = "back"
        Case Else
            StateName = "?"
    End Select
End Function

Public Function ClockText() As String
    #If CLOCK_SECONDS Then
        ClockText = Format$(Now, "ddd d mmm, hh:nn:ss")
    #Else
        ClockText = Format$(Now, "ddd d mmm, hh:nn")
    #End If
End Function

Public Function NextSlipNo() As Long
    gSettings.LastSlip = gSettings.LastSlip + 1
    NextSlipNo = gSettings.LastSlip
End Function

' Writes one line to the Immediate window when the desk was started with /trace.
Public Sub TraceLine(ByVal Topic As String, ParamArray Parts() As Variant)
    Dim varPart As Variant, strText As String

    If Not mTraceOn Then Exit Sub
    mTraceCount = mTraceCount + 1
    strText = Format$(mTraceCount, "0000") & " " & Topic
    For Each varPart In Parts
        strText = strText & " | " & varPart
    Next varPart
    Debug.Print strText
End Sub

Private Function UserName() As String
    Dim strBuffer As String, lngSize As Long

    lngSize = 64
    strBuffer = String$(lngSize, vbNullChar)
    If GetUserName(strBuffer, lngSize) <> 0 Then
        UserName = Left$(strBuffer, lngSize - 1)
    Else
        UserName = "somebody"
    End If
End Function

Private Function StepName(ByVal AtStep As StartStep) As String
    Select Case AtStep
        Case ssSettings: StepName = "reading the settings"
        Case ssPrices: StepName = "making the price list"
        Case ssBook: StepName = "opening the hire book"
        Case ssDone: StepName = "showing the window"
    End Select
End Function

' Prices used to end in 0 or 5. The till wanted it so.
Private Function RoundToFive(ByVal Amount As Currency) As Currency
    RoundToFive = Int(Amount * 20 + 0.5) / 20
End Function
