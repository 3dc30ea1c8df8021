' The end of a month in a small office, as a macro: settings, a log, files, the registry, holidays,
' an address and the clipboard. It works in the folder that it is given:
'
'     cscript //nologo macro.vbs FOLDER
'
' It asks for the classes by name, so that it needs no reference. Results of the kind String() come
' as arrays of texts, which VBScript cannot index: ArrayToCollection makes something of them that
' For Each can visit. Programs that declare their variables use them as they are.
Option Explicit

Const eLogEntryType_Error = 1
Const eLogEntryType_Information = 4
Const eLogFormat_MsgLevel = 8
Const eAdr_Firma = 2
Const eAdr_Nachname = 3
Const eAdr_Vorname = 4
Const eAdr_Strasse = 6
Const eAdr_Plz = 7
Const eAdr_Ort = 8
Const eLanguage_English = 4
Const kSettings = "HKEY_CURRENT_USER\Software\Acme\MonthEnd"

Dim strings, files, tools, convert, registry, clipboard
Set strings = CreateObject("quorkit.GQuorStrings")
Set files = CreateObject("quorkit.GQuorFile")
Set tools = CreateObject("quorkit.GQuorTools")
Set convert = CreateObject("quorkit.GQuorConvert")
Set registry = CreateObject("quorkit.GQuorRegistry")
Set clipboard = CreateObject("quorkit.GQuorClipboard")

Dim folder
folder = files.PathAddBackSlash(WScript.Arguments(0))

Dim settings, log
Set settings = CreateObject("quorkit.QuorInifile")
settings.IniFileName = folder & "month.ini"
Set log = OpenLog(folder & "month.log")

Note "begins"
KeepSettings
Dim report
report = Heading(DateSerial(2026, 11, 30)) & vbCrLf & Invoices(folder) & vbCrLf & Recipient()
settings.WriteMultiLineValue "Report", "Text", report
RememberRun
clipboard.SetTextToClipboard report
WScript.Echo clipboard.GetTextFromClipboard()
WScript.Echo "failures: " & Failures()
Note "ends"
log.CloseLogfile
registry.Reg_DeletePath "HKEY_CURRENT_USER\Software\Acme"

' Entries with their level, appended by as many programs as like to.
Function OpenLog(name)
    Dim made
    Set made = CreateObject("quorkit.QuorLogFile")
    made.LogFileName = name
    made.LogFormat = eLogFormat_MsgLevel
    made.LogLevel = eLogEntryType_Information
    made.MaxFileSize = 64
    made.Append = True
    If Not made.OpenLogfile() Then WScript.Quit 1
    Set OpenLog = made
End Function

Sub Note(text)
    log.writeLogfileEntry text, eLogEntryType_Information
End Sub

' What the office set by hand stays as it is; what is missing gets a default.
Sub KeepSettings()
    If settings.ReadKeyValue("Month", "Currency", "") = "" Then
        settings.WriteKeyValue "Month", "Currency", "CHF"
    End If
    Dim count, key, names
    names = settings.ReadSectionKeys("Month", count)
    Note count & " settings"
    For Each key In convert.ArrayToCollection(names)
        Note key & " = " & settings.ReadKeyValue("Month", key, "")
    Next
End Sub

' "November 2026, 21 working days, next is Tue", with the days until Easter.
Function Heading(lastDay)
    Dim nextDay, easter
    nextDay = tools.DateAddEx(lastDay, "d=1")
    easter = tools.OsterSonntag(Year(lastDay) + 1)
    Heading = "Month " & strings.LPad("0", Month(lastDay), 2) & "/" & Year(lastDay) & _
        ", next day " & tools.WochentagString(nextDay, False, eLanguage_English) & _
        ", Easter in " & CLng(easter - lastDay) & " days"
End Function

' One line for each invoice, padded; a file without an amount is told in the log.
Function Invoices(where)
    Dim names, name, count, amount, total, lines
    count = files.getFilesFromDirectoryEx(where, names, "invoice*.ini")
    If count = 0 Then names = Array()  ' where there is no file, it has one name, which is empty
    lines = "": total = 0
    For Each name In convert.ArrayToCollection(names)
        amount = AmountOf(where & name)
        If amount < 0 Then
            log.writeLogfileEntry "no amount: " & name, eLogEntryType_Error
        Else
            total = total + amount
            lines = lines & strings.RPad(".", files.ChangeFileExt(name, ""), 20) & _
                strings.LPad(".", Money(amount), 12) & vbCrLf
        End If
    Next
    Invoices = lines & count & " invoices, " & settings.ReadKeyValue("Month", "Currency", "?") & _
        " " & Money(total)
End Function

Function Money(amount)
    Dim cents
    cents = CLng(amount * 100)
    Money = (cents \ 100) & "." & strings.LPad("0", cents Mod 100, 2)
End Function

' The amount in an invoice, -1 when there is none.
Function AmountOf(file)
    Dim invoice, text
    Set invoice = CreateObject("quorkit.QuorInifile")
    invoice.IniFileName = file
    text = strings.StringToNumber(invoice.ReadKeyValue("Invoice", "Amount", ""))
    If text = "" Then AmountOf = -1 Else AmountOf = CDbl(text)
End Function

Function Recipient()
    Dim address
    Set address = CreateObject("quorkit.QuorAddress")
    address.setStandardAttribut eAdr_Firma, "Acme AG"
    address.setStandardAttribut eAdr_Vorname, "Erika"
    address.setStandardAttribut eAdr_Nachname, "Muster"
    address.setStandardAttribut eAdr_Strasse, "Hauptstrasse 1"
    address.setStandardAttribut eAdr_Plz, "6300"
    address.setStandardAttribut eAdr_Ort, "Zug"
    Recipient = address.getPostAddress() & vbCrLf & address.formatPhoneNumber("044 123 45 67", True)
End Function

' How often the macro ran, kept for the user, and when.
Sub RememberRun()
    Dim runs, values, name
    runs = registry.Reg_ReadDWordValue(kSettings, "Runs") + 1
    registry.Reg_WriteDWordValue kSettings, "Runs", runs
    registry.Reg_WriteStringValue kSettings, "Last", "2026-11-30"
    Set values = registry.Reg_EnumKeyValuesEx(kSettings)
    For Each name In values.Keys
        Note name & " = " & values.Item(name)
    Next
    WScript.Echo "run " & runs & ", " & values.Count & " values"
End Sub

' The entries of the level "error" in the log.
Function Failures()
    Dim stream
    Set stream = CreateObject("Scripting.FileSystemObject").OpenTextFile(log.LogFileName)
    Failures = strings.GetCountSearchPatternInString(stream.ReadAll(), "no amount")
    stream.Close
End Function
