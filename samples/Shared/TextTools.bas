Attribute VB_Name = "TextTools"
Option Explicit
Option Compare Text

' Text functions shared by the programs of the shop.

Public Const DEFAULT_DELIMITER As String = "|"

Private Const POUND_SIGN = "£"
Private Const ACCENTS = "àâäçéèêëîïôöùûü"

Public Function PadRight(ByVal Text As String, ByVal Width As Long) As String
    PadRight = Left$(Text & Space$(Width), Width)
End Function

Public Function PadLeft(ByVal Text As String, ByVal Width As Long) As String
    If Len(Text) >= Width Then
        PadLeft = Text
    Else
        PadLeft = Space$(Width - Len(Text)) & Text
    End If
End Function

' £12.50, or -£12.50 for money that goes back.
Public Function MoneyText(ByVal Amount As Currency, Optional ByVal WithSign As Boolean = True) As String
    MoneyText = Format$(Abs(Amount), "#,##0.00")
    If WithSign Then MoneyText = POUND_SIGN & MoneyText
    If Amount < 0 Then MoneyText = "-" & MoneyText
End Function

Public Function QuoteText(ByVal Text As String) As String
    QuoteText = """" & Replace(Text, """", """""") & """"
End Function

Public Function IsBlank(ByVal Text As String) As Boolean
    IsBlank = (Len(Trim$(Text)) = 0)
End Function

' Part number Nr of a delimited text, counted from 1; empty when there are fewer.
Public Function PartOf$(ByVal Text$, ByVal Nr%, Optional ByVal Delimiter$ = DEFAULT_DELIMITER)
    Dim strParts() As String

    If IsBlank(Text$) Then Exit Function
    strParts = Split(Text$, Delimiter$)
    If Nr% >= 1 And Nr% <= UBound(strParts) + 1 Then PartOf$ = strParts(Nr% - 1)
End Function

Public Function JoinParts(ByVal Delimiter As String, ParamArray Parts() As Variant) As String
    Dim i As Long, strText As String

    For i = LBound(Parts) To UBound(Parts)
        If i > LBound(Parts) Then strText = strText & Delimiter
        strText = strText & Parts(i)
    Next i
    JoinParts = strText
End Function

Public Function PluralText(ByVal Number As Long, ByVal One As String, Optional ByVal Many As Variant) As String
    If Number = 1 Then
        PluralText = "1 " & One
    ElseIf IsMissing(Many) Then
        PluralText = Number & " " & One & "s"
    Else
        PluralText = Number & " " & Many
    End If
End Function

Rem Searching without accents was asked for once and never wired up.
Private Function HasAccents(ByVal Text As String) As Boolean
    Dim i As Long

    i = 1
    Do Until i > Len(Text) Or HasAccents
        HasAccents = (InStr(ACCENTS, Mid$(Text, i, 1)) > 0)
        i = i + 1
    Loop
End Function
