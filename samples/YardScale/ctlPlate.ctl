VERSION 5.00
Begin VB.UserControl ctlPlate 
   ClientHeight    =   1575
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   3975
   ScaleHeight     =   1575
   ScaleWidth      =   3975
End
Attribute VB_Name = "ctlPlate"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = True
Option Explicit

' The plate that the goods stand on.

Public Sub Place(ByVal Kilos As Double)
    Draw Kilos
End Sub

Private Sub Draw(ByVal Kilos As Double)
    Cls
    Print Format$(Kilos, "0.0")
End Sub
