Attribute VB_Name = "modSlip"
Option Explicit

' The slip that goes with a tool, on the printer or in the preview.

#If Win32 Then
Private Declare Function GetComputerName Lib "kernel32" Alias "GetComputerNameA" _
    (ByVal lpBuffer As String, nSize As Long) As Long
#Else
Private Declare Function GetWindowsDirectory Lib "Kernel" _
    (ByVal lpBuffer As String, ByVal nSize As Integer) As Integer
#End If

Private Const SLIP_WIDTH As Integer = 40
Private Const CAPTION_WIDTH As Integer = 28
Private Const RULE_SIGN = "-"

Private Type SlipLine
    Caption As String * 28
    Amount As Currency
    Bold As Boolean
    Column As Integer
End Type

Private Type StripePair
    Dark As Byte
    Pale As Byte
End Type

Private mLines() As SlipLine
Private mCount As Integer
Private Copies As Integer

' Prints the slip of a hire. Without a target it goes to the printer, twice:
' one for the customer and one for the spike.
Public Sub PrintSlip(ByVal Hire As clsHire, Optional ByVal Target As Object)
    Dim objOut As Object, strTitle As String
    Dim i As Integer, intCopy As Integer

    On Error GoTo PrintFailed
    If Target Is Nothing Then
        Set objOut = Printer: Copies = 2
        strTitle = "Slip " & NextSlipNo
    Else
        Set objOut = Target: Copies = 1
        strTitle = "Preview"
        objOut.Cls
    End If

    BuildLines Hire
    For intCopy = 1 To Copies
        PrintHead objOut, strTitle
        For i = 1 To mCount
            With mLines(i)
                objOut.FontBold = .Bold
                objOut.Print .Caption & PadLeft(MoneyText(.Amount), SLIP_WIDTH - CAPTION_WIDTH)
            End With
        Next i
        objOut.FontBold = False
        objOut.Print String$(SLIP_WIDTH, RULE_SIGN)
        Hire.PrintOn objOut
        objOut.Print "Due back by " & Format$(Hire.DueOn, "dddd d mmmm, hh:nn")
        If Target Is Nothing And intCopy < Copies Then Printer.NewPage
    Next intCopy
    If Target Is Nothing Then Printer.EndDoc
    Exit Sub

PrintFailed:
    #If SLIPTRACE Then
        TraceLine "PrintSlip", Hire.HireNo, Err.Number
        Stop
    #End If
    MsgBox "The slip couldn't be printed: " & Err.Description, vbExclamation, DESK_TITLE
End Sub

' Prints anything that knows how to print itself.
Public Sub PrintAll(ByVal Title As String, ByVal Items As Collection, Optional ByVal Target As Object)
    Dim varItem As Variant, Copies As Integer

    If Target Is Nothing Then Set Target = Printer
    PrintHead Target, Title
    For Each varItem In Items
        varItem.PrintOn Target, 4
        Copies = Copies + 1
    Next varItem
    Target.Print PluralText(Copies, "entry", "entries")
    If Target Is Printer Then Printer.EndDoc
End Sub

Private Sub PrintHead(ByVal Target As Object, ByVal Title As String)
    Target.FontName = "Courier New"
    Target.FontBold = True
    Target.Print gSettings.ShopName
    Target.FontBold = False
    Target.Print "Counter " & CounterNo & " at " & MachineName
    Target.Print Title & " - " & Format$(Now, "dd/mm/yyyy hh:nn")
    Target.Print String$(SLIP_WIDTH, RULE_SIGN)
End Sub

Private Sub BuildLines(ByVal Hire As clsHire)
    Dim colParts As New Collection
    Dim varPart As Variant, Part As IChargeable
    Dim strOldText As String

    mCount = 0: Erase mLines
    colParts.Add Hire.Tool
    colParts.Add Hire.Customer
    For Each varPart In colParts
        Set Part = varPart
        If Part.ChargeFor(Hire.Kind, DaysFor(Hire.Kind)) > 0 Then
            AddLine Part.LineTitle, Part.ChargeFor(Hire.Kind, DaysFor(Hire.Kind))
        End If
    Next varPart
    If Hire.LateFee > 0 Then
        AddLine "Late, " & PluralText(Hire.LateDays, "day"), Hire.LateFee
    End If
    If Hire.CleaningFee > 0 Then AddLine "Cleaning and repair", Hire.CleaningFee
    If Hire.TradeDiscount > 0 Then AddLine "Trade discount", -Hire.TradeDiscount
    AddLine "Total", Hire.Total, Bold:=True
    AddLine "Deposit held", Hire.Customer.Deposit
End Sub

Private Sub AddLine(ByVal Caption As String, ByVal Amount As Currency, Optional ByVal Bold As Boolean = False)
    mCount = mCount + 1
    ReDim Preserve mLines(1 To mCount)
    mLines(mCount).Caption = PadRight(Caption, CAPTION_WIDTH)
    mLines(mCount).Amount = Amount: mLines(mCount).Bold = Bold
End Sub

Private Function MachineName() As String
    Dim strBuffer As String, lngSize As Long

    lngSize = 32
    strBuffer = Space$(lngSize)
    #If Win32 Then
        If GetComputerName(strBuffer, lngSize) <> 0 Then MachineName = Left$(strBuffer, lngSize)
    #Else
        MachineName = Left$(strBuffer, GetWindowsDirectory(strBuffer, 32))
    #End If
End Function

' The barcode reader was sold in spring; the stickers are still on the tools.
Public Sub PrintBarcode(ByVal Tool As clsTool, ByVal Target As Object)
    Target.FontName = "Code 39"
    Target.Print BarcodeText(Tool.Code)
End Sub

Private Function BarcodeText(ByVal Code As String) As String
    BarcodeText = "*" & Code & BarcodeCheck(Code) & "*"
End Function

Private Function BarcodeCheck(ByVal Code As String) As String
    Dim i%, lngSum&

    For i% = 1 To Len(Code)
        lngSum& = lngSum& + Asc(Mid$(Code, i%, 1)) * i%
    Next i%
    BarcodeCheck = Hex$(lngSum& And &HF)
End Function
