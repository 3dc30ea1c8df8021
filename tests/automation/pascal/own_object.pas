{ An object of the client's own, with properties by name. }
unit own_object;
{$mode delphi}
interface
uses activex, classes, sysutils, variants, windows;

type
  TOwnObject = class(TInterfacedObject, IDispatch)
  private
    Names: TStringList;
    Values: array of OleVariant;
  public
    constructor Create;
    destructor Destroy; override;
    procedure Put(const Name: string; const Value: OleVariant);
    function GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
    function GetTypeInfo(Index, Locale: LongInt; out Info): HResult; stdcall;
    function GetIDsOfNames(const IID: TGUID; Wanted: Pointer; Count, Locale: LongInt;
      Identifiers: Pointer): HResult; stdcall;
    function Invoke(Identifier: LongInt; const IID: TGUID; Locale: LongInt; Flags: Word;
      var Params; Made, Failure, Position: Pointer): HResult; virtual; stdcall;
  end;

implementation

function VariantCopyInd(var Copy: OleVariant; const Given: OleVariant): HResult; stdcall;
  external 'oleaut32.dll';

constructor TOwnObject.Create;
begin
  Names := TStringList.Create;
end;

destructor TOwnObject.Destroy;
begin
  Names.Free;
  inherited;
end;

procedure TOwnObject.Put(const Name: string; const Value: OleVariant);
begin
  SetLength(Values, Names.Add(Name) + 1);
  Values[High(Values)] := Value;
end;

function TOwnObject.GetTypeInfoCount(out Count: LongInt): HResult;
begin
  Count := 0;
  Result := S_OK;
end;

function TOwnObject.GetTypeInfo(Index, Locale: LongInt; out Info): HResult;
begin
  Result := E_NOTIMPL;
end;

function TOwnObject.GetIDsOfNames(const IID: TGUID; Wanted: Pointer; Count, Locale: LongInt;
  Identifiers: Pointer): HResult;
begin
  PLongInt(Identifiers)^ := Names.IndexOf(PPWideChar(Wanted)^);
  Result := S_OK;
  if PLongInt(Identifiers)^ < 0 then Result := DISP_E_UNKNOWNNAME;
end;

function TOwnObject.Invoke(Identifier: LongInt; const IID: TGUID; Locale: LongInt; Flags: Word;
  var Params; Made, Failure, Position: Pointer): HResult;
var
  Given: TDispParams absolute Params;
begin
  Result := DISP_E_MEMBERNOTFOUND;
  if (Identifier < 0) or (Identifier > High(Values)) then Exit;
  if Flags and (DISPATCH_PROPERTYPUT or DISPATCH_PROPERTYPUTREF) <> 0 then
  begin
    Result := VariantCopyInd(Values[Identifier], POleVariant(Given.rgvarg)^);
    { Free Pascal refuses arrays that are not allocated. }
    with TVarData(Values[Identifier]) do
      if (VType and varArray <> 0) and (VArray = nil) then
      begin
        VType := varEmpty;
        Values[Identifier] := VarArrayCreate([0, -1], varVariant);
      end;
    Exit;
  end
  else if Made <> nil then
    POleVariant(Made)^ := Values[Identifier];
  Result := S_OK;
end;

end.
