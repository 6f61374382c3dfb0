Attribute VB_Name = "modRound"
Option Explicit

Public Function RoundedUp(ByVal Kilos As Double) As Double
    RoundedUp = -Int(-Kilos)
End Function
