Attribute VB_Name = "modTicks"
Option Explicit

' The scale is asked four times a second.

Private Declare Function SetTimer Lib "user32" _
    (ByVal hWnd As Long, ByVal nIDEvent As Long, ByVal uElapse As Long, ByVal lpTimerFunc As Long) As Long
Private Declare Function KillTimer Lib "user32" (ByVal hWnd As Long, ByVal nIDEvent As Long) As Long

Private mTimer As Long

Public Sub StartTicks()
    mTimer = SetTimer(0, 0, 250, AddressOf ScaleTick)
End Sub

Public Sub StopTicks()
    KillTimer 0, mTimer
End Sub

Public Sub ScaleTick(ByVal hWnd As Long, ByVal uMsg As Long, ByVal idEvent As Long, ByVal dwTime As Long)
    If gState = ssWeighing Then CountTick
End Sub

Private Sub CountTick()
    Static lngTicks As Long

    lngTicks = lngTicks + 1
    If lngTicks Mod 4 = 0 Then gState = ssDone
End Sub
