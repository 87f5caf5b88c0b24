Attribute VB_Name = "Vexlor32"
' The functions of the library with String. A failure shows in the result; VxFError() gives the reason of the last one. Positions
' begin with 1, and one that does not exist is 0. vbNullString is NULL, as an argument and as a result. What cannot be handed over
' raises an error: 5 for a text with Chr$(0) or a character that the system's code page does not have, 6 for a number, 9 for a block
' that is too short, 14 for a result that no memory holds, 52 for what is closed.
Option Explicit

Private Const LEAST_HOST_ROOM As Double = 262144 ' no program is started with a longer text
Private Const LARGEST_ROOM As Double = 2147483647#
Private Const UNSIGNED_RANGE As Double = 4294967296#

#If VBA7 Then
Private Declare PtrSafe Function lstrlenA Lib "kernel32" (ByVal text As LongPtr) As Long
Private Declare PtrSafe Sub RtlMoveMemory Lib "kernel32" (ByRef target As Any, ByVal source As LongPtr, ByVal count As LongPtr)
#Else
Private Declare Function lstrlenA Lib "kernel32" (ByVal text As Long) As Long
Private Declare Sub RtlMoveMemory Lib "kernel32" (ByRef target As Any, ByVal source As Long, ByVal count As Long)
#End If

' --- declarations

Private Sub CheckText(ByRef text As String)
    If InStr(1, text, vbNullChar, vbBinaryCompare) > 0 Then Err.Raise 5, , "the text has a Chr$(0) in it"
    If StrComp(StrConv(StrConv(text, vbFromUnicode), vbUnicode), text, vbBinaryCompare) <> 0 Then
        Err.Raise 5, , "the text has a character that the system's code page does not have"
    End If
End Sub

' In bytes.
Private Function TextSize(ByRef text As String) As Double
    TextSize = LenB(StrConv(text, vbFromUnicode))
End Function

Private Function TextRoom(ByVal room As Double) As String
    If room > LARGEST_ROOM Then Err.Raise 14, , "the result could need " & CStr(room) & " bytes"
    TextRoom = String$(CLng(maxOf(room, 1)), vbNullChar)
End Function

' The text with so much room behind it that there are `room` bytes.
Private Function TextIn(ByRef text As String, ByVal room As Double) As String
    If StrPtr(text) = 0 Then
        TextIn = vbNullString
    Else
        TextIn = text & TextRoom(room - TextSize(text))
    End If
End Function

' What stands in front of the first Chr$(0).
Private Function TextOf(ByRef room As String) As String
    Dim ending As Long
    ending = InStr(1, room, vbNullChar, vbBinaryCompare)
    If ending > 0 Then TextOf = Left$(room, ending - 1) Else TextOf = room
End Function

Private Function TextAt(ByVal address As LongPtr) As String
    Dim count As Long
    Dim content() As Byte
    If address = 0 Then Exit Function
    TextAt = ""
    count = lstrlenA(address)
    If count = 0 Then Exit Function
    ReDim content(0 To count - 1)
    RtlMoveMemory content(0), address, count
    TextAt = StrConv(content, vbUnicode)
End Function

' How far behind the block's start the call begins; it has to have the bytes that the call needs, in front of it, too, if before is below 0.
Private Function StartIn(ByRef block() As Byte, ByVal needed As Double, ByVal before As Long) As Long
    Dim front As Double
    front = maxOf(-CDbl(before), 0)
    If UBound(block) - LBound(block) + 1 < needed + front Then Err.Raise 9, , "the block is shorter than the call needs"
    StartIn = CLng(front)
End Function

Private Function HostRoom() As Double
    Dim index As Long
    HostRoom = LEAST_HOST_ROOM
    index = 1
    Do While Len(Environ$(index)) > 0
        HostRoom = maxOf(HostRoom, 4# * Len(Environ$(index)) + 2)
        index = index + 1
    Loop
End Function

' The code of a character, which may be given as a String of one.
Private Function CodeOf(ByVal character As Variant) As Long
    If VarType(character) = vbString Then
        CheckText CStr(character)
        If Len(character) <> 1 Then Err.Raise 5, , "a character or its code"
        CodeOf = Asc(character) And &HFF&
    Else
        CodeOf = CLng(character)
    End If
End Function

' Numbers without sign are Double here, and Long to the library.
Private Function BitsOf(ByVal value As Double) As Long
    If value < 0 Or value >= UNSIGNED_RANGE Then Err.Raise 6
    If value > LARGEST_ROOM Then BitsOf = CLng(value - UNSIGNED_RANGE) Else BitsOf = CLng(value)
End Function

Private Function UnsignedOf(ByVal bits As Long) As Double
    UnsignedOf = bits
    If bits < 0 Then UnsignedOf = bits + UNSIGNED_RANGE
End Function

Private Function maxOf(ByVal a As Double, ByVal b As Double) As Double
    If a > b Then maxOf = a Else maxOf = b
End Function

Private Function minOf(ByVal a As Double, ByVal b As Double) As Double
    If a < b Then minOf = a Else minOf = b
End Function
