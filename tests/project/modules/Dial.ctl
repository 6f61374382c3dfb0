Begin VB.UserControl Dial
  Begin VB.Label lbl
  End
End
Public Property Let Turn(v)
  lbl.Top = v
  UserControl.Width = gSpare
End Property
Private Sub UserControl_Resize()
  Start
End Sub
