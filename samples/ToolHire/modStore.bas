Attribute VB_Name = "modStore"
Option Explicit

' Keeps settings and hires in plain text files beside the program.

Private Declare Function GetPrivateProfileString Lib "kernel32" Alias "GetPrivateProfileStringA" _
    (ByVal lpApplicationName As String, ByVal lpKeyName As String, _
    ByVal lpDefault As String, ByVal lpReturnedString As String, _
    ByVal nSize As Long, ByVal lpFileName As String) As Long
Private Declare Function WritePrivateProfileString Lib "kernel32" Alias "WritePrivateProfileStringA" _
    (ByVal lpApplicationName As String, ByVal lpKeyName As String, _
    ByVal lpString As String, ByVal lpFileName As String) As Long

Private Const INI_NAME = "toolhire.ini"
Private Const INI_SECTION = "Desk"
Private Const SEP As String = "|"
Private Const FIRST_DAY As Date = #1/5/2004#

Private Type HireRecord
    HireNo As Long
    CustomerName As String
    ToolCode As String
    Kind As RateKind
    OutOn As Date
End Type

Private mRecords() As HireRecord
Private mRecordCount As Long

Public Sub ReadSettings()
    With gSettings
        .ShopName = IniText("ShopName", "Larkmoor Tool Hire")
        .DataDir = IniText("DataDir", App.Path)
        .LastSlip = Val(IniText("LastSlip", "1000"))
    End With
    CounterNo = Val(IniText("CounterNo", "1"))
End Sub

Public Sub WriteSettings()
    Call PutIniText("ShopName", gSettings.ShopName)
    Call PutIniText("DataDir", gSettings.DataDir)
    Call PutIniText("LastSlip", CStr(gSettings.LastSlip))
    Call PutIniText("CounterNo", CStr(CounterNo))
End Sub

' Fills the book and gives the number of hires in it.
Public Function LoadBook(ByVal Book As clsHireBook) As Integer
    Dim strFile As String, strLine As String
    Dim intFile%, i As Long

    On Error GoTo LoadFailed
    FillCatalogue Book
    strFile = DataFile("hires.txt")
    If Dir$(strFile) = "" Then
        SeedBook Book
        GoTo LoadDone
    End If

    mRecordCount = 0
    intFile% = FreeFile
    Open strFile For Input As #intFile%
    Do While Not EOF(intFile%)
        Line Input #intFile%, strLine
        If Not IsBlank(strLine) Then AddRecord strLine
    Loop
    Close #intFile%

    For i = 1 To mRecordCount
        RestoreHire Book, mRecords(i)
    Next i

LoadDone:
    LoadBook = Book.Count
    Exit Function

LoadFailed:
    TraceLine "LoadBook", Err.Number, Err.Description
    Close
    Resume LoadDone
End Function

Public Sub SaveBook(ByVal Book As clsHireBook)
    Dim hir As clsHire
    Dim intFile%

    BackupStore
    intFile% = FreeFile
    Open DataFile("hires.txt") For Output As #intFile%
    For Each hir In Book
        If hir.State <> hsReturned Then
            Print #intFile%, JoinParts(SEP, hir.HireNo, hir.Customer.FullName, hir.Tool.Code, _
                hir.Kind, Format$(hir.OutOn, "yyyy-mm-dd hh:nn"))
        End If
    Next hir
    Close #intFile%
End Sub

' A copy of yesterday's file is better than none. Nobody is told when it fails.
Public Sub BackupStore()
    Dim objFiles As Object

    On Error Resume Next
    Set objFiles = CreateObject("Scripting.FileSystemObject")
    objFiles.CopyFile DataFile("hires.txt"), DataFile("hires.bak"), True
    Set objFiles = Nothing
End Sub

Private Function DataFile(ByVal FileName As String) As String
    Dim fso As New Scripting.FileSystemObject
    Dim strDir As String

    strDir = gSettings.DataDir
    If Right$(strDir, 1) <> "\" Then strDir = strDir & "\"
    If Not fso.FolderExists(strDir) Then fso.CreateFolder strDir
    DataFile = strDir & FileName
End Function

Private Function IniText(ByVal Key As String, ByVal Default As String) As String
    Dim strBuffer As String * 255
    Dim lngLen As Long

    lngLen = GetPrivateProfileString(INI_SECTION, Key, Default, strBuffer, 255, App.Path & "\" & INI_NAME)
    IniText = Left$(strBuffer, lngLen)
End Function

Private Sub PutIniText(ByVal Key As String, ByVal NewText As String)
    WritePrivateProfileString INI_SECTION, Key, NewText, App.Path & "\" & INI_NAME
End Sub

Private Sub AddRecord(ByVal RecordText As String)
    mRecordCount = mRecordCount + 1
    ReDim Preserve mRecords(1 To mRecordCount)
    With mRecords(mRecordCount)
        .HireNo = Val(PartOf(RecordText, 1))
        .CustomerName = PartOf(RecordText, 2)
        .ToolCode = PartOf(RecordText, 3)
        .Kind = Val(PartOf(RecordText, 4))
        .OutOn = CDate(PartOf(RecordText, 5))
    End With
End Sub

Private Sub RestoreHire(ByVal Book As clsHireBook, Rec As HireRecord)
    Dim cus As clsCustomer, tol As clsTool

    Set cus = Book.FindCustomer(Rec.CustomerName)
    Set tol = Book.FindTool(Rec.ToolCode)
    If cus Is Nothing Then Set cus = Book.AddCustomer(Rec.CustomerName, "")
    If tol Is Nothing Then
        TraceLine "RestoreHire", Rec.HireNo, "no tool " & QuoteText(Rec.ToolCode)
    Else
        Book.OpenHire cus, tol, Rec.Kind, OutOn:=Rec.OutOn, HireNo:=Rec.HireNo
    End If
End Sub

Private Sub FillCatalogue(ByVal Book As clsHireBook)
    Book.AddTool "DR10", "Hammer drill 10 mm", tkDrill, 4
    Book.AddTool "DR32", "Rotary drill 32 mm", tkDrill, 2
    Book.AddTool "MX90", "Cement mixer 90 l", tkMixer, 3
    Book.AddTool "SC04", "Scaffold tower 4 m", tkScaffold, 2
    Book.AddTool "SC07", "Scaffold tower 7 m", tkScaffold, 1
    Book.AddTool "OT55", "Carpet cleaner ""Foam King""", tkOther, 2
    Book.AddCustomer "Renée Aldous", "01632 960011"
    Book.AddCustomer "O'Farrell & Daughters", "01632 960045", IsTrade:=True
    Book.AddCustomer "Piet Vandermolen", "01632 960078"
End Sub

' Hires to play with when there is no file yet.
Private Sub SeedBook(ByVal Book As clsHireBook)
    Dim datOut As Date

    datOut = DateAdd("h", 9, Date)
    If datOut < FIRST_DAY Then datOut = FIRST_DAY
    With Book
        .OpenHire .FindCustomer("Renée Aldous"), .FindTool("DR10"), rkDay, datOut - 3
        .OpenHire .FindCustomer("O'Farrell & Daughters"), .FindTool("MX90"), rkWeek, datOut - 2
        .OpenHire .FindCustomer("Piet Vandermolen"), .FindTool("SC04"), rkWeekend, datOut
    End With
End Sub

' Two leftovers from the days of the one big data file.
Private Function VerifyStore(ByVal Depth As Integer) As Boolean
    If FileLen(DataFile("hires.txt")) > &H7FFF& Then
        VerifyStore = CompactStore(Depth + 1)
    Else
        VerifyStore = True
    End If
End Function

Private Function CompactStore(ByVal Depth As Integer) As Boolean
    If Depth > 3 Then Exit Function
    FileCopy DataFile("hires.txt"), DataFile("hires.old")
    CompactStore = VerifyStore(Depth)
End Function
