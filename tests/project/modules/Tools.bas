Public gOther() As Worker, gSelf As stdole2
Private r As Rec
Declare Sub Sleep Lib "k" (ByVal a)
Public Sub Help(x)
  ReDim gSpare(2), gTable(kLimit)
  r.inner.Run
  With gWorker: .Size = green
  End With
  u.Run
End Sub
Private Sub Alone()
  Alone
  Sleep 1
End Sub
