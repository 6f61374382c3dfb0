VERSION 5.00
Begin VB.Form Form1
  Begin VB.CommandButton cmd
  End
  Begin Project1.Dial Dial1
  End
End
Attribute VB_Name = "Form1"
Private Sub cmd_Click()
  Start
  Dial1.Turn = 1
End Sub
Public Sub Redraw()
  Form2.cmd.Caption = ""
  ReDim gTable(1), gFresh(2)
End Sub
