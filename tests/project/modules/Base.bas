Public gTable() As Long, gWorker As Worker
Public Const kLimit = 3
Public Enum Shade
  red = kLimit
  green
End Enum
Public Type Rec
  part As Long
  inner As Worker
End Type
Public Sub Start()
  Help red
  gWorker.Size = Total(gTable)
  Form1.Redraw
End Sub
Public Function Total(x) As Rec
  ReDim gTable(3), gOther(2), gSpare(1) As Byte
  Total.part = gOther
End Function
