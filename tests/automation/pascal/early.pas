{ Calls members as the imported unit declares them, and writes what arrives at an object. }
program early;
{$mode delphi}
uses activex, comobj, sysutils, variants, windows, quorkit_TLB;

type
  TReceiver = class(TInterfacedObject, IDispatch)
    function GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
    function GetTypeInfo(Index, Locale: LongInt; out Info): HResult; stdcall;
    function GetIDsOfNames(const IID: TGUID; Names: Pointer; Count, Locale: LongInt;
      Identifiers: Pointer): HResult; stdcall;
    function Invoke(Identifier: LongInt; const IID: TGUID; Locale: LongInt; Flags: Word;
      var Params; Made, Failure, Position: Pointer): HResult; stdcall;
  end;

function TReceiver.GetTypeInfoCount(out Count: LongInt): HResult;
begin
  Result := E_NOTIMPL;
end;

function TReceiver.GetTypeInfo(Index, Locale: LongInt; out Info): HResult;
begin
  Result := E_NOTIMPL;
end;

function TReceiver.GetIDsOfNames(const IID: TGUID; Names: Pointer; Count, Locale: LongInt;
  Identifiers: Pointer): HResult;
begin
  Result := E_NOTIMPL;
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
end.
