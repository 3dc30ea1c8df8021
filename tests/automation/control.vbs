' The members of global classes without their objects, in the system's control for scripts; and what the
' language has of its own, as arguments.
Option Explicit
Dim control, kept, global, expression, convert, dictionary, names()

Class List
    Public Count
    Public Default Function Item(index)
        If index > 2 Then Err.Raise 9
        Item = "item" & index
    End Function
End Class

Class Witness
    Private Sub Class_Terminate
        WScript.Echo "released"
    End Sub
End Class

Sub Show(name)
    control.AddObject name, CreateObject("quorkit." & name), True
End Sub

Sub Equal(found, wanted)
    If found <> wanted Then WScript.Echo "not ok: " & found & ", not " & wanted
End Sub

Set control = CreateObject("MSScriptControl.ScriptControl")
control.Language = "VBScript"
For Each global In Array("GQuorClipboard", "GQuorConvert", "GQuorFile", "GQuorKeyboard", "GQuorLanguage", _
        "GQuorProgram", "GQuorRegistry", "GQuorStrings", "GQuorTools", "GQuorWindows")
    Show global
Next
For Each expression In Array("LPad(""0"", ""7"", 3) = ""007""", "cBoolEx(""oui"")", "Not FileExists(""C:\none"")", _
        "LastDayInMonth(2, 2024) = 29", "URLPathEncode(""a b"") = ""a%20b""", "VarType(ShiftKeyDown) = vbBoolean", _
        "Reg_ReadDWordValue(""HKCU\Software\none"", ""x"", 5) = 5", "ConvertPointsToPixels(72) = 96", _
        "VarType(GetTextFromClipboard) = vbString", "GQuorStrings.RPad(""0"", ""7"", 3) = ""700""")
    If Not control.Eval(expression) Then WScript.Echo "not ok: " & expression
Next
control.AddCode "Function Padded(text)" & vbLf & "Padded = LPad("" "", text, 4)" & vbLf & "End Function"
Equal control.Run("Padded", 12), "  12"

Set convert = CreateObject("quorkit.GQuorConvert")
Set kept = New List
kept.Count = 2
Equal convert.CollectionToStringToken(kept, ";"), "item1;item2"
Set dictionary = CreateObject("Scripting.Dictionary")
dictionary.Add "Name", 5
CreateObject("quorkit.GQuorRegistry").Reg_WriteKeyValuesEx "HKCU\Software\quorkit-control", dictionary
Equal control.Eval("Reg_ReadStringValue(""HKCU\Software\quorkit-control"", ""Name"")"), "5"
control.ExecuteStatement "Reg_DeletePath ""HKCU\Software\quorkit-control"""
Equal convert.StringTokenToStringArray("a,b", ",", names), 2
Equal names(1), "b"

On Error Resume Next
kept.Count = 3
convert.CollectionToStringToken kept, ";"
Equal Err.Number, 9
control.ExecuteStatement "LPad ""0"", Null, 3"
Equal Err.Number & Err.Description, "94Invalid use of Null"
Equal control.Error.Number And 65535, 94
Err.Clear
control.Eval "ScrollLock(1)"
Equal Err.Number, 450
On Error GoTo 0

control.Reset
Show "GQuorStrings"
Equal control.Eval("LPad(""0"", ""7"", 3)"), "007"

' What it holds goes with it.
Set kept = CreateObject("quorkit.QuorCollection")
kept.setValueByKey New Witness, "witness"
control.AddObject "kept", kept
Set kept = Nothing
WScript.Echo "held"
Set control = Nothing
WScript.Echo "control.vbs: done"
