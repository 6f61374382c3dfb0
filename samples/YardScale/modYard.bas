Attribute VB_Name = "modYard"
Option Explicit

' What the yard knows: the loads, and what state the scale is in.

Public Enum ScaleState
    ssIdle
    ssWarmUp
    ssWeighing
    ssDone
End Enum

Public Type PlateRect
    Left As Long
    Top As Long
    Right As Long
    Bottom As Long
End Type

Public Declare Function GetWindowRect Lib "user32" (ByVal hWnd As Long, lpRect As PlateRect) As Long

Public gLoads As New Collection
Public gState As ScaleState

Public Function PlateWidth(ByVal hWnd As Long) As Long
    Dim rec As PlateRect

    If GetWindowRect(hWnd, rec) <> 0 Then PlateWidth = rec.Right - rec.Left
End Function

' The bays are rows of slots; what stands in one may be anything.
Public Sub RinseAll(ByVal Bays As Variant)
    Dim i As Integer

    For i = LBound(Bays) To UBound(Bays)
        Bays(i)(0).Rinse
    Next i
End Sub

Public Sub RefillFrom(ByVal Source As Object)
    Source.Refill 10
End Sub

Public Sub PrintTickets()
    Dim varLoad As Variant

    For Each varLoad In gLoads
        varLoad.PrintTicket
    Next varLoad
End Sub

' For the stocktaking, which is started from the immediate window.
Public Sub CountLoads()
    ShowCount gLoads.Count
End Sub

Private Sub ShowCount(ByVal Loads As Long)
    Debug.Print Loads & " loads"
End Sub

' Came with the old printer, and may come back with it.
Private Sub PrintCarbon()
    Printer.Print CarbonHead()
End Sub

Private Function CarbonHead() As String
    CarbonHead = "Copy"
End Function
