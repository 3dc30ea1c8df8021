' The members of global classes without their objects, in the system's control for scripts.
Option Explicit
Dim control, kept, global, expression

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

On Error Resume Next
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
