{ Reads requests, one a line, and answers each with a line of JSON: what compiled code would do with the
  server through Variants. contract/pascal.py writes and reads them. }
program session;
{$mode objfpc}{$H+}{$R+}
uses activex, comobj, sysutils, variants, windows, own_object;

const
  Shown = [varSmallint, varInteger, varDouble, varDate, varOleStr, varDispatch, varBoolean];

var
  Line: string;
  Place: Integer;
  Held: array of OleVariant;  { what the other side knows by its number }
  Made: OleVariant;  { the last result }

function Next: string;
var
  Start: Integer;
begin
  Start := Place;
  while (Place <= Length(Line)) and (Line[Place] <> ' ') do Inc(Place);
  Result := Copy(Line, Start, Place - Start);
  Inc(Place);
end;

function Number: Int64;
begin
  Result := StrToInt64(Next);
end;

function Text: WideString;
var
  Digits: string;
  I: Integer;
begin
  Digits := Next;
  SetLength(Result, Length(Digits) div 4);
  for I := 1 to Length(Result) do Result[I] := WideChar(StrToInt('$' + Copy(Digits, I * 4 - 3, 4)));
end;

function Hold(const Value: OleVariant): string;
begin
  SetLength(Held, Length(Held) + 1);
  Held[High(Held)] := Value;
  Result := '{"object":' + IntToStr(High(Held)) + '}';
end;

function Own(const ClassName: string): OleVariant;
begin
  Result := CreateOleObject('quorkit.' + ClassName);
end;

function Value: OleVariant;  { Value() reads another one }
var
  Kind: string;
  I, J, Low1, Low2, Rows: Integer;
  Bits: Int64;
  Form: TOwnObject;
  Key: OleVariant;
begin
  Result := Unassigned;
  Kind := Next;
  case Kind of
    'Empty': ;
    'Null': Result := Null;
    'Missing': Result := EmptyParam;
    'Nothing': TVarData(Result).VType := varDispatch;
    'Boolean': Result := Number <> 0;
    'Integer': Result := VarAsType(LongInt(Number), varSmallint);
    'Long': Result := LongInt(Number);
    'String': Result := Text;
    'Error': Result := VarAsError(Number);
    'Object': Result := Held[Number];
    'Double':
      begin
        Bits := Number;
        Result := PDouble(@Bits)^;
      end;
    'Date':
      begin
        Bits := Number;
        Result := PDateTime(@Bits)^;
      end;
    'Bytes':
      begin
        Low1 := Number;
        Rows := Number;
        Result := VarArrayCreate([Low1, Low1 + Rows - 1], varByte);
        for I := Low1 to Low1 + Rows - 1 do Result[I] := Byte(Number);
      end;
    'Array':
      begin
        Low1 := Number;
        Rows := Number;
        Result := VarArrayCreate([Low1, Low1 + Rows - 1], Number);
        for I := Low1 to Low1 + Rows - 1 do Result[I] := Value();
      end;
    'Table':
      begin
        Low1 := Number;
        Low2 := Number;
        Rows := Number;
        I := Number;
        Result := VarArrayCreate([Low1, Low1 + I - 1, Low2, Low2 + Rows - 1], Number);
        for J := Low2 to Low2 + Rows - 1 do
          for I := Low1 to VarArrayHighBound(Result, 1) do Result[I, J] := Value();
      end;
    'Collection': Result := Own('GQuorConvert').ArrayToCollection(Value());
    'Dictionary':
      begin
        Result := Own('GQuorRegistry').Reg_EnumKeyValuesEx('HKCU\Software\quorkit none');
        for I := 1 to Number do
        begin
          Key := Value();
          Result.Add(Key, Value());
        end;
      end;
    'Form':
      begin
        Form := TOwnObject.Create;
        Result := IDispatch(Form);
        for I := 1 to Number do
        begin
          Kind := Next;
          Form.Put(Kind, Value());
        end;
      end;
  else
    raise Exception.Create('value ' + Kind);
  end;
end;

function Quoted(const S: WideString): string;
var
  I: Integer;
begin
  Result := '';
  for I := 1 to Length(S) do Result := Result + '\u' + IntToHex(Ord(S[I]), 4);
  Result := '"' + Result + '"';
end;

function Told(const V: OleVariant): string; forward;

function ToldArray(const V: OleVariant): string;
var
  I, J: Integer;
  Row: string;
begin
  Result := '';
  if (VarArrayDimCount(V) = 0) or (VarArrayHighBound(V, 1) < VarArrayLowBound(V, 1)) then
    Exit('{"array":[],"lower":0}');
  if VarArrayDimCount(V) = 1 then
  begin
    for I := VarArrayLowBound(V, 1) to VarArrayHighBound(V, 1) do Result := Result + ',' + Told(V[I]);
    if VarType(V) and varTypeMask = varByte then Row := '{"bytes":[' else Row := '{"array":[';
    Exit(Row + Copy(Result, 2) + '],"lower":' + IntToStr(VarArrayLowBound(V, 1)) + '}');
  end;
  for J := VarArrayLowBound(V, 2) to VarArrayHighBound(V, 2) do
  begin
    Row := '';
    for I := VarArrayLowBound(V, 1) to VarArrayHighBound(V, 1) do Row := Row + ',' + Told(V[I, J]);
    Result := Result + ',[' + Copy(Row, 2) + ']';
  end;
  Result := '{"table":[' + Copy(Result, 2) + '],"lower":[' + IntToStr(VarArrayLowBound(V, 1)) + ',' +
    IntToStr(VarArrayLowBound(V, 2)) + ']}';
end;

function Has(const V: OleVariant; const Name: WideString): Boolean;
var
  Identifier: LongInt;
begin
  Result := Succeeded(IDispatch(V).GetIDsOfNames(GUID_NULL, @Name, 1, 0, @Identifier));
end;

{ What an object is shows in what it has. }
function ToldObject(const V: OleVariant): string;
var
  I: Integer;
  Inside: OleVariant;
begin
  if IDispatch(V) = nil then Exit('{"nothing":true}');
  for I := 0 to High(Held) do
    if (VarType(Held[I]) = varDispatch) and (IUnknown(Held[I]) = IUnknown(V)) then
      Exit('{"object":' + IntToStr(I) + '}');
  Result := '';
  if Has(V, 'Keys') then
  begin
    Inside := V.Keys;
    for I := VarArrayLowBound(Inside, 1) to VarArrayHighBound(Inside, 1) do
      Result := Result + ',[' + Told(Inside[I]) + ',' + Told(V.Item(Inside[I])) + ']';
    Result := '{"dictionary":[' + Copy(Result, 2) + ']}';
  end
  else if Has(V, 'Handle') then
    Result := '{"picture":null}'
  else if Has(V, 'File') then
    Result := '{"picture":' + Told(V.&File) + '}'
  else if Has(V, 'Item') then
  begin
    Inside := Own('GQuorConvert').CollectionToArray(V);
    for I := 1 to V.Count do
    begin
      Result := Result + ',{';
      if (VarArrayDimCount(Inside) = 2) and (Inside[0, I - 1] <> '') then
        Result := Result + '"key":' + Told(Inside[0, I - 1]) + ',';
      Result := Result + '"item":' + Told(V.Item(I)) + '}';
    end;
    Result := '{"collection":[' + Copy(Result, 2) + ']}';
  end
  else
    Result := Hold(V);
end;

function Told(const V: OleVariant): string;
begin
  if VarIsArray(V) then Exit(ToldArray(V));
  case VarType(V) of
    varEmpty: Result := 'null';
    varNull: Result := '{"null":true}';
    varByte, varInteger: Result := IntToStr(V);
    varSmallint: Result := '{"integer":' + IntToStr(V) + '}';
    varBoolean: if V then Result := 'true' else Result := 'false';
    varDouble: Result := '{"double":' + IntToStr(PInt64(@TVarData(V).VDouble)^) + '}';
    varDate: Result := '{"date":' + IntToStr(PInt64(@TVarData(V).VDouble)^) + '}';
    varOleStr: Result := Quoted(WideString(Pointer(TVarData(V).VOleStr)));
    varDispatch: Result := ToldObject(V);
    varError:
      if VarIsEmptyParam(V) then Result := '{"missing":true}'
      else Result := '{"error":' + IntToStr(TVarData(V).VError) + '}';
  else
    Result := '{"type":' + IntToStr(VarType(V)) + '}';
  end;
end;

{ call OBJECT KIND MEMBER COUNT NAMED NAME... and each argument, the last first, behind how it is handed in: by
  value, as a variable of its type, or as a Variant. The descriptor is the one that the compiler makes of a call. }
function Call: string;
const
  Kinds: array[0..2] of Byte = (DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT);
var
  Target: OleVariant;
  Descriptor: TCallDesc;
  Names, How: string;
  Arguments: array of OleVariant;
  Slots: array[0..63] of Pointer;
  I, Slot: Integer;
begin
  Target := Held[Number];
  Descriptor.CallType := Kinds[Number];
  Names := Next + #0;
  Descriptor.ArgCount := Number;
  Descriptor.NamedArgCount := Number;
  for I := 1 to Descriptor.NamedArgCount do Names := Names + Next + #0;
  SetLength(Arguments, Descriptor.ArgCount);
  Slot := 0;
  for I := 0 to High(Arguments) do
  begin
    How := Next;
    Arguments[I] := Value;
    with TVarData(Arguments[I]) do
    begin
      Descriptor.ArgTypes[I] := varVariant;
      Slots[Slot] := @Arguments[I];
      if How = 'Variant' then
        Descriptor.ArgTypes[I] := varVariant or $80
      else if VarIsEmptyParam(Arguments[I]) then
        Descriptor.ArgTypes[I] := varError
      else if VType in Shown then
      begin
        Descriptor.ArgTypes[I] := VType;
        if How = 'Variable' then
        begin
          Descriptor.ArgTypes[I] := VType or $80;
          Slots[Slot] := @VPointer;
        end
        else
          Slots[Slot] := VPointer;
      end;
      if (SizeOf(Pointer) = 4) and (Descriptor.ArgTypes[I] in [varDouble, varDate]) then
      begin
        Inc(Slot);
        Slots[Slot] := Pointer(PtrUInt(VLongs[2]));
      end;
      if Descriptor.ArgTypes[I] <> varError then Inc(Slot);
    end;
  end;
  Move(PChar(Names)^, Descriptor.ArgTypes[Descriptor.ArgCount], Length(Names));
  VarDispProc(@Made, Target, @Descriptor, @Slots);
  Result := '';
  for I := High(Arguments) downto 0 do Result := Result + ',' + Told(Arguments[I]);
  Result := '{"args":[' + Copy(Result, 2) + '],"result":' + Told(Made) + '}';
end;

function Answer: string;
begin
  case Next of
    'class': Result := Hold(Own(Next));
    'hold': Result := Hold(Value);
    'keep': Result := Hold(Made);
    'call': Result := Call;
  end;
end;

begin
  while not Eof do
  begin
    Readln(Line);
    Place := 1;
    try
      Line := Answer;
      Writeln('{"result":', Line, '}');
    except
      on E: EOleSysError do Writeln('{"error":', E.ErrorCode, '}');
      on E: EOleError do Writeln('{"error":', DISP_E_UNKNOWNNAME, '}');
      on ERangeError do Writeln('{"cannot":"an object that is not there"}');
      on E: Exception do Writeln('{"failed":', Quoted(WideString(E.ClassName + ': ' + E.Message)), '}');
    end;
    Flush(Output);
  end;
end.
