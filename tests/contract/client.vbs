' What the rows of the contract table are said with; they follow as one Sub each.
Option Explicit
Dim FSO, Answers, Units, Bits, Result
Const TWO26 = 67108864
Set FSO = CreateObject("Scripting.FileSystemObject")

' There are no texts beyond ASCII in this file: every unit of UTF-16 is in another one.
Sub Start(folder)
    Dim file
    Set file = FSO.OpenTextFile(folder & "units.txt", 1, False, -1)
    Units = file.ReadAll
    Set Answers = FSO.CreateTextFile(folder & "answers.txt", True, True)
    Set Bits = WScript.CreateObject("Msxml2.DOMDocument").createElement("bytes")
    Bits.dataType = "bin.base64"
End Sub

Function U(number)
    U = Mid(Units, number + 1, 1)
End Function

Function Dbl(high, low, exponent)
    Dbl = (CDbl(high) * TWO26 + low) * 2 ^ exponent
End Function

Function Bytes(base64)
    Bits.text = base64
    Bytes = Bits.nodeTypedValue
End Function

' An object of the client's own that the library takes for a Collection.
Class List
    Private held
    Private Sub Class_Initialize
        Set held = CreateObject("Scripting.Dictionary")
    End Sub
    Public Property Get Count
        Count = held.Count
    End Property
    Public Default Property Get Item(index)
        If VarType(index) = vbString Then Err.Raise 5
        If Not held.Exists(CLng(index)) Then Err.Raise 9
        If IsObject(held.Item(CLng(index))) Then
            Set Item = held.Item(CLng(index))
        Else
            Item = held.Item(CLng(index))
        End If
    End Property
    Public Sub Add(one, key)
        held.Add CLng(held.Count + 1), one
    End Sub
End Class

' One that it takes for a picture.
Class PictureFile
    Public File
End Class

Sub Reset
    Err.Clear
    Result = Empty
End Sub

' Receives a result, whether or not it is an object.
Sub Take(value)
    If IsObject(value) Then Set Result = value Else Result = value
End Sub

Sub Tell(key, number, shownResult, finals)
    Answers.WriteLine "{""key"":""" & key & """,""error"":" & number & ",""result"":" & shownResult & _
        ",""finals"":[" & finals & "]}"
End Sub

Function Tagged(name, shownValue)
    Tagged = "{""" & name & """:" & shownValue & "}"
End Function

Function Quoted(text)
    Dim masked
    masked = Replace(Replace(text, "\", "\\"), """", "\""")
    Quoted = """" & Replace(Replace(masked, vbCr, "\r"), vbLf, "\n") & """"
End Function

' No digit is lost: both halves of the mantissa, and the exponent.
Function ShownDouble(ByVal value)
    Dim sign, high, exponent
    sign = Sgn(value)
    value = Abs(value)
    exponent = 0
    Do While value >= 1
        value = value / 2
        exponent = exponent + 1
    Loop
    Do While value < 0.5 And value > 0
        value = value * 2
        exponent = exponent - 1
    Loop
    high = Int(value * TWO26 * 2)
    ShownDouble = Tagged("double", "[" & sign * high & "," & sign * (value * TWO26 * 2 - high) * TWO26 & "," & _
        exponent & "]")
End Function

' A value in the notation of the table; doubles differ, and a lower bound that cannot be seen is null.
Function Shown(value)
    If IsObject(value) Then
        Shown = ShownObject(value)
        Exit Function
    End If
    Select Case VarType(value)
        Case vbEmpty Shown = "null"
        Case vbNull Shown = Tagged("null", "true")
        Case vbInteger Shown = Tagged("integer", value)
        Case vbLong Shown = CStr(value)
        Case vbDouble Shown = ShownDouble(value)
        Case vbDate Shown = Tagged("date", ShownDouble(CDbl(value)))
        Case vbString Shown = Quoted(value)
        Case vbBoolean If value Then Shown = "true" Else Shown = "false"
        Case 8204 Shown = ShownArray(value)
        Case 8200 Shown = "{""array"":" & ShownTexts(value) & ",""lower"":null}"
        Case 8209
            Shown = "{""bytes"":" & ShownBytes(value) & ",""lower"":null}"
            Shown = Replace(Shown, "{""bytes"":"""",", "{""array"":[],")
        Case Else Shown = Tagged("type", VarType(value))
    End Select
End Function

' The same object as one that has a name is shown by it.
Function ShownAs(value, known, name)
    ShownAs = Shown(value)
    If IsObject(value) Then
        If value Is known Then ShownAs = Tagged("object", """" & name & """")
    End If
End Function

Function ShownArray(values)
    Dim i, j, text, row
    On Error Resume Next
    text = ""
    i = UBound(values)
    If Err.Number <> 0 Or i < LBound(values) Then
        ShownArray = "{""array"":[],""lower"":0}"
        Exit Function
    End If
    i = UBound(values, 2)
    If Err.Number <> 0 Then
        For i = LBound(values) To UBound(values)
            text = text & "," & Shown(values(i))
        Next
        ShownArray = "{""array"":[" & Mid(text, 2) & "],""lower"":" & LBound(values) & "}"
        Exit Function
    End If
    For j = LBound(values, 2) To UBound(values, 2)
        row = ""
        For i = LBound(values, 1) To UBound(values, 1)
            row = row & "," & Shown(values(i, j))
        Next
        text = text & ",[" & Mid(row, 2) & "]"
    Next
    ShownArray = "{""table"":[" & Mid(text, 2) & "],""lower"":[" & LBound(values, 1) & "," & LBound(values, 2) & "]}"
End Function

' The language reads arrays of Variants only; others go through the library, or through one that can.
Function ShownTexts(values)
    Dim one, text
    text = ""
    For Each one In GQuorConvert.ArrayToCollection(values)
        text = text & "," & Shown(one)
    Next
    ShownTexts = "[" & Mid(text, 2) & "]"
End Function

' A table of texts has become a collection too, its first column the keys.
Function ShownTable(values)
    Dim listed, keys, i, text
    If VarType(values) <> 8200 Then
        ShownTable = Shown(values)
        Exit Function
    End If
    text = ""
    Set listed = GQuorConvert.ArrayToCollection(values)
    keys = KeysOf(listed)
    For i = 1 To listed.Count
        text = text & ",[" & Quoted(keys(i)) & "," & Shown(listed.Item(i)) & "]"
    Next
    ShownTable = "{""table"":[" & Mid(text, 2) & "],""lower"":null}"
End Function

Function Copied(value)
    Copied = value
End Function

Function ShownBytes(values)
    On Error Resume Next
    Bits.text = ""
    Bits.nodeTypedValue = Copied(values)
    ShownBytes = Quoted(Replace(Bits.text, vbLf, ""))
End Function

' What an object is shows in what it has.
Function ShownObject(object)
    Dim found, key, text
    On Error Resume Next
    text = ""
    If object Is Nothing Then
        ShownObject = Tagged("nothing", "true")
        Exit Function
    End If
    Err.Clear
    found = object.Keys
    If Err.Number = 0 Then
        For Each key In found
            text = text & ",[" & Shown(key) & "," & Shown(object.Item(key)) & "]"
        Next
        ShownObject = Tagged("dictionary", "[" & Mid(text, 2) & "]")
        Exit Function
    End If
    Err.Clear
    text = "null"
    found = object.Handle
    If Err.Number <> 0 Then
        Err.Clear
        found = object.File
        If Err.Number = 0 Then text = ShownBytes(found)
    End If
    If Err.Number = 0 Then
        ShownObject = Tagged("picture", text)
        Exit Function
    End If
    Err.Clear
    found = object.Count
    If Err.Number = 0 Then found = object.Item(0)
    If Err.Number = 438 Then ShownObject = Tagged("object", "0") Else ShownObject = ShownCollection(object)
End Function

Function ShownCollection(object)
    Dim keys, i, key, text
    text = ""
    keys = KeysOf(object)
    For i = 1 To object.Count
        key = ""
        If keys(i) <> "" Then key = """key"":" & Quoted(keys(i)) & ","
        text = text & ",{" & key & """item"":" & Shown(object.Item(i)) & "}"
    Next
    ShownCollection = Tagged("collection", "[" & Mid(text, 2) & "]")
End Function

' The keys of a collection, counted from 1; those that it does not have are "".
Function KeysOf(object)
    Dim all, keys, i
    On Error Resume Next
    ReDim keys(object.Count)
    all = GQuorConvert.CollectionToArray(object)
    For i = 1 To object.Count
        keys(i) = ""
        keys(i) = all(0, i - 1)
    Next
    KeysOf = keys
End Function
