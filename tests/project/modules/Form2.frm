Begin VB.Form Form2
  Begin VB.Label cmd
  End
End
Dim o As Other
Private Sub Form_Load()
  o.Ask.Run
  Form1.Redraw
End Sub
