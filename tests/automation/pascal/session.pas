{ Does one request a line as compiled code does it with a Variant that holds an object, and answers it with
  a line of JSON. What each line means is known to contract/automation.py, which writes and reads them. }
program session;
{$mode objfpc}{$H+}{$R+}
uses activex, comobj, sysutils, variants, windows, own_object;

type
  TBounds = array of SizeInt;
  TIndex = array of LongInt;

var
  Line: string;
  Place: Integer;
  Held: array of OleVariant;  { objects, which the other side knows by their numbers }

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

{ Where an element is, which are counted from 0, the first index running fastest. }
function IndexOf(Element: SizeInt; const Bounds: TBounds): TIndex;
var
  I, Size: SizeInt;
begin
  SetLength(Result, Length(Bounds) div 2);
  for I := 0 to High(Result) do
  begin
    Size := Bounds[2 * I + 1] - Bounds[2 * I] + 1;
    Result[I] := Bounds[2 * I] + Element mod Size;
    Element := Element div Size;
  end;
end;

function Value: OleVariant; forward;

{ array TYPE DIMENSIONS LOW HIGH... COUNT and the elements }
function ReadArray: OleVariant;
var
  Bounds: TBounds;
  I, Kind: SizeInt;
begin
  Kind := Number;
  SetLength(Bounds, 2 * Number);
  for I := 0 to High(Bounds) do Bounds[I] := Number;
  Result := VarArrayCreate(Bounds, Kind);
  for I := 0 to Number - 1 do VarArrayPut(Variant(Result), Value, IndexOf(I, Bounds));
end;

function ReadForm: OleVariant;
var
  Form: TOwnObject;
  Name: string;
  I: Integer;
begin
  Form := TOwnObject.Create;
  Result := IDispatch(Form);
  for I := 1 to Number do
  begin
    Name := Next;
    Form.Put(Name, Value);
  end;
end;

function Value: OleVariant;
begin
  Result := Unassigned;
  case Next of
    'text': Result := Text;
    'array': Result := ReadArray;
    'object': Result := Held[Number];
    'form': Result := ReadForm;
    'plain':
      begin
        TVarData(Result).VType := Number;
        TVarData(Result).VInt64 := Number;
      end;
  end;
end;

function Told(const V: OleVariant): string; forward;

function ToldText(const S: WideString): string;
var
  I: Integer;
begin
  Result := '';
  for I := 1 to Length(S) do Result := Result + '\u' + IntToHex(Ord(S[I]), 4);
  Result := '"' + Result + '"';
end;

function ToldArray(const V: OleVariant): string;
var
  I, Count: SizeInt;
  Bounds: TBounds;
  Elements: string;
begin
  SetLength(Bounds, 2 * VarArrayDimCount(V));
  Result := '';
  Count := 1;
  for I := 0 to High(Bounds) do
  begin
    if Odd(I) then Bounds[I] := VarArrayHighBound(V, I div 2 + 1)
    else Bounds[I] := VarArrayLowBound(V, I div 2 + 1);
    if Odd(I) then Count := Count * (Bounds[I] - Bounds[I - 1] + 1);
    Result := Result + ',' + IntToStr(Bounds[I]);
  end;
  Elements := '';
  for I := 0 to Count - 1 do Elements := Elements + ',' + Told(VarArrayGet(V, IndexOf(I, Bounds)));
  Result := '{"elements":[' + Copy(Elements, 2) + '],"type":' + IntToStr(VarType(V)) + ',"bounds":[' +
    Copy(Result, 2) + ']}';
end;

{ Each object has one number. }
function ToldObject(const V: OleVariant): string;
var
  I: Integer;
begin
  I := 0;
  while (I < Length(Held)) and (IUnknown(Held[I]) <> IUnknown(V)) do Inc(I);
  if I = Length(Held) then SetLength(Held, I + 1);
  Held[I] := V;
  Result := '{"object":' + IntToStr(I) + '}';
end;

function Told(const V: OleVariant): string;
begin
  if VarIsArray(V) then
    Result := ToldArray(V)
  else if VarType(V) = varOleStr then
    Result := ToldText(WideString(Pointer(TVarData(V).VOleStr)))
  else if (VarType(V) = varDispatch) and (TVarData(V).VDispatch <> nil) then
    Result := ToldObject(V)
  else
    Result := '{"plain":' + IntToStr(TVarData(V).VInt64) + ',"type":' + IntToStr(VarType(V)) + '}';
end;

{ call OBJECT WAY MEMBER COUNT NAMED NAME... and the arguments, the last first, each behind how it is handed in:
  left out, by value, as a variable of its type, or as a Variant. The compiler makes such a descriptor of a call. }
function Call: string;
var
  Target, Made: OleVariant;
  Descriptor: TCallDesc;
  Names, How: string;
  Arguments: array of OleVariant;
  Slots: array[0..63] of Pointer;
  I, Slot: Integer;
begin
  Target := Held[Number];
  Descriptor.CallType := Number;
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
      Descriptor.ArgTypes[I] := VType and $7F;
      Slots[Slot] := VPointer;
      if How = 'missing' then
        Continue;
      if How = 'variable' then
      begin
        Descriptor.ArgTypes[I] := VType or $80;
        Slots[Slot] := @VPointer;
      end
      else if (How = 'variant') or (VType >= varVariant) or (VType in [varEmpty, varNull, varError]) then
      begin
        Descriptor.ArgTypes[I] := varVariant;
        if How = 'variant' then Descriptor.ArgTypes[I] := varVariant or $80;
        Slots[Slot] := @Arguments[I];
      end
      else if (SizeOf(Pointer) = 4) and (VType in [varDouble, varDate]) then
      begin
        Inc(Slot);
        Slots[Slot] := PPointer(@VLongs[2])^;
      end;
      Inc(Slot);
    end;
  end;
  Move(PChar(Names)^, Descriptor.ArgTypes[Descriptor.ArgCount], Length(Names));
  VarDispProc(@Made, Target, @Descriptor, @Slots);
  Result := '';
  for I := High(Arguments) downto 0 do Result := Result + ',' + Told(Arguments[I]);
  Result := '{"finals":[' + Copy(Result, 2) + '],"result":' + Told(Made) + '}';
end;

function Answer: string;
begin
  Result := 'null';
  case Next of
    'create': Result := ToldObject(CreateOleObject(Next));
    'hold': Result := ToldObject(Value);
    'call': Result := Call;
    'forget': SetLength(Held, Number);  { all but the first ones }
  end;
  Result := '{"result":' + Result + '}';
end;

begin
  while not Eof do
  begin
    Readln(Line);
    Place := 1;
    try
      Line := Answer;
    except
      on E: EOleSysError do Line := '{"error":' + IntToStr(E.ErrorCode) + '}';
      on E: EOleError do Line := '{"error":' + IntToStr(DISP_E_UNKNOWNNAME) + '}';
      on E: ERangeError do Line := '{"cannot":"an object that is not there"}';
      on E: Exception do Line := '{"failed":' + ToldText(WideString(E.ClassName + ': ' + E.Message)) + '}';
    end;
    Writeln(Line);
    Flush(Output);
  end;
end.
