{ Calls members as the imported unit declares them: at an object that writes what arrives, and at the
  server, which is called by name too. }
program client;
{$mode delphi}
uses activex, comobj, sysutils, variants, windows, own_object, quorkit_TLB;

type
  TReceiver = class(TOwnObject)
    function Invoke(Identifier: LongInt; const IID: TGUID; Locale: LongInt; Flags: Word;
      var Params; Made, Failure, Position: Pointer): HResult; override; stdcall;
  end;

function TReceiver.Invoke(Identifier: LongInt; const IID: TGUID; Locale: LongInt; Flags: Word;
  var Params; Made, Failure, Position: Pointer): HResult;
var
  Given: TDispParams absolute Params;
  I: Integer;
begin
  Write(IntToHex(Identifier, 8), ' ', Flags, ':');
  for I := Given.cArgs - 1 downto 0 do Write(' ', IntToHex(Given.rgvarg[I].vt, 4));
  Writeln;
  Invoke := S_OK;
end;

procedure Arrives;
var
  Receiver: IDispatch;
  A, B, C, D: WideString;
  V: OleVariant;
begin
  Receiver := TReceiver.Create;
  _GQuorStrings(Receiver).formatAppVersionString('1.2', True);
  _GQuorStrings(Receiver).ParseString(A, B, C, D);
  _QuorLogFile(Receiver).LogFormat := eLogFormat_UserName;
  _GQuorKeyboard(Receiver).ScrollLock := True;
  _GQuorFile(Receiver).getFilesFromDirectoryEx('x', V, '*', False, Null, EmptyParam, '');
end;

procedure Early;
var
  Strings: _GQuorStrings;
  Log: _QuorLogFile;
  Major, Minor, Revision, Build, Result: LongInt;
begin
  Strings := CoGQuorStrings.Create;
  Writeln('early: ', Strings.LPad('0', '7', 3));
  Result := Strings.SplitAppVersionString('1.2.3.4', Major, Minor, Revision, Build);
  Writeln('version 1.2.3.4: ', Result, ', ', Major, ' ', Minor, ' ', Revision, ' ', Build);
  Log := CoQuorLogFile.Create;
  Log.LogLevel := eLogEntryType_BlankLine;
  Writeln('level: ', LongInt(Log.LogLevel));
end;

procedure Late;
var
  Strings, Values, Files, Bytes: OleVariant;
  Zero, Seven: WideString;
begin
  Strings := CreateOleObject('quorkit.GQuorStrings');
  Zero := '0';
  Seven := '7';
  Writeln('late: ', WideString(Strings.lpad(Zero, Seven, 3)), ', by name: ',
    WideString(Strings.LPad(Zero, maxLen := 3, s := Seven)));
  Values := CreateOleObject('quorkit.QuorCollection');
  Values.setValueByKey('kept', 'key');
  Writeln('value: ', WideString(Values.getValueByKey('KEY')));
  Files := CreateOleObject('quorkit.GQuorFile');
  try
    Files.LoadFileToByteArray('Z:\no\such file', Bytes);
  except
    on E: EOleException do
      Writeln('error ', IntToHex(E.ErrorCode, 8), ' from ', E.Source, ': ', E.Message);
  end;
end;

begin
  Arrives;
  Early;
  Late;
end.
