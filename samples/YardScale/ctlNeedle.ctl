VERSION 5.00
Begin VB.UserControl ctlNeedle 
   ClientHeight    =   1575
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   3975
   ScaleHeight     =   1575
   ScaleWidth      =   3975
End
Attribute VB_Name = "ctlNeedle"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
Option Explicit

' The needle of the scale.

Private Const LONGEST As Long = 4000

Private mReach As Long

Public Property Let Reach(ByVal Twips As Long)
    mReach = Twips
End Property

' The designer of a form may set it.
Public Property Let Span(ByVal Twips As Long)
    If Twips > LONGEST Then Twips = LONGEST
    mReach = Twips
End Property

Public Sub PointTo(ByVal Kilos As Double)
    Cls
    Line (0, 0)-(mReach, Kilos)
End Sub
