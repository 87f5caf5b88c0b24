// Makes the calls of vexlor_conformance through the units for Pascal; caller_process.h has the protocol.
program caller;

{$MODE DELPHI}{$H+}{$R+}{$Q+}

uses
  SysUtils, Classes, VexlorBase, Vexlor32, Vexlor;

type
  TCallName = record
    Name: PAnsiChar;
    Index: LongInt;
  end;
  TArgument = record
    Number: Int64;
    Memory: PAnsiChar;
    Bytes: TBytes;
  end;
  TArguments = array of TArgument;

var
  Words: TStringList;     // of the request, without what is asked for
  Arguments: TArguments;  // of an exact call
  Answer, Others: AnsiString;
  Opened: TStringList;    // friendly objects by kind and handle
  Buffer: array[0..65535] of AnsiChar;
  Next, Filled: SizeInt;  // what of the buffer is still to be read

function HexOf(Data: PAnsiChar; Size: SizeInt): AnsiString;
const
  Digits: array[0..15] of AnsiChar = '0123456789abcdef';
var
  I: SizeInt;
begin
  Result := '';
  SetLength(Result, 2 * Size);
  for I := 0 to Size - 1 do
  begin
    Result[2 * I + 1] := Digits[Ord(Data[I]) shr 4];
    Result[2 * I + 2] := Digits[Ord(Data[I]) and 15];
  end;
end;

// With a byte more, so that there is an address in any case.
function BytesOf(const Digits: AnsiString; Spare: SizeInt): TBytes;
begin
  Result := nil;
  SetLength(Result, Length(Digits) div 2 + Spare);
  if Digits <> '' then HexToBin(PAnsiChar(Digits), PAnsiChar(Result), Length(Digits) div 2);
end;

function TextOf(const Digits: AnsiString): AnsiString;
begin
  Result := '';
  SetLength(Result, Length(Digits) div 2);
  if Digits <> '' then HexToBin(PAnsiChar(Digits), PAnsiChar(Result), Length(Result));
end;

// Range checks tell a result that is declared with the other sign.
procedure GaveLongInt(Value: LongInt);
begin
  Answer := 'n' + IntToStr(Value);
end;

procedure GaveLongWord(Value: LongWord);
begin
  Answer := 'n' + IntToStr(Value);
end;

procedure GavePlace(Value: Pointer);
var
  Beyond, I: Integer;
  Offset: PtrInt;
begin
  Answer := 'z';
  if Value = nil then Exit;
  for Beyond := 0 to 1 do  // the end of one may be the beginning of another
    for I := 0 to High(Arguments) do
      if Arguments[I].Bytes <> nil then
      begin
        Offset := PAnsiChar(Value) - PAnsiChar(Arguments[I].Bytes);
        if (Offset >= 0) and (Offset < Length(Arguments[I].Bytes) - 1 + Beyond) then
        begin
          Answer := 'p' + IntToStr(I) + '@' + IntToStr(Offset);
          Exit;
        end;
      end;
  Answer := 't' + HexOf(Value, StrLen(PAnsiChar(Value)));
end;

procedure Keep(const Name, Value: AnsiString);
begin
  if Name = 'result' then Answer := Value else Others := Others + ' ' + Name + '=' + Value;
end;

procedure GiveNumber(const Name: AnsiString; Value: Int64);
begin
  Keep(Name, 'n' + IntToStr(Value));
end;

procedure GiveBool(const Name: AnsiString; Value: Boolean);
begin
  GiveNumber(Name, Ord(Value));
end;

procedure GiveChar(const Name: AnsiString; Value: AnsiChar);
begin
  GiveNumber(Name, Ord(Value));
end;

procedure GiveText(const Name, Value: AnsiString);
begin
  Keep(Name, 't' + HexOf(PAnsiChar(Value), Length(Value)));
end;

procedure GiveBlock(const Name: AnsiString; const Value: TBytes);
begin
  Keep(Name, 't' + HexOf(PAnsiChar(Value), Length(Value)));
end;

procedure GivePlace(const Place: AnsiString; Offset: LongInt);
begin
  if Offset < 0 then Answer := 'z' else Answer := 'p' + Place + '@' + IntToStr(Offset);
end;

procedure LiesIn(const Place: AnsiString);
begin
  GivePlace(Place, 0);
end;

procedure GiveOpened(const Name, Kind, None: AnsiString; Value: TVexlorHandle);
begin
  if Value = nil then
    Keep(Name, None)
  else
  begin
    GiveNumber(Name, Value.Handle);
    Opened.AddObject(Kind + 'n' + IntToStr(Value.Handle), Value);
  end;
end;

procedure GiveTable(const Name: AnsiString; Value: TVexlorTable);
begin
  GiveOpened(Name, 'table', 'n0', Value);
end;

procedure GiveFile(const Name: AnsiString; Value: TVexlorFile);
begin
  GiveOpened(Name, 'file', 'n-1', Value);
end;

// The one that was opened last, where a number was given again; nil for what never was.
function InOpened(const Kind: AnsiString; I: Integer): TObject;
var
  J: Integer;
begin
  Result := nil;
  for J := 0 to Opened.Count - 1 do
    if Opened[J] = Kind + Words[I] then Result := Opened.Objects[J];
end;

function InTable(I: Integer): TVexlorTable;
begin
  Result := TVexlorTable(InOpened('table', I));
end;

function InFile(I: Integer): TVexlorFile;
begin
  Result := TVexlorFile(InOpened('file', I));
end;

function InNumber(I: Integer): Int64;
begin
  Result := StrToInt64(Copy(Words[I], 2, MaxInt));
end;

function InChar(I: Integer): AnsiChar;
begin
  Result := AnsiChar(InNumber(I) and $FF);
end;

function InText(I: Integer): AnsiString;
begin
  Result := TextOf(Copy(Words[I], 2, MaxInt));
end;

function InBytes(I: Integer): TBytes;
begin
  Result := BytesOf(Copy(Words[I], 2, MaxInt), 0);
end;

{$I pascal_dispatch.inc}

function IndexOf(const Names: array of TCallName; const Name: AnsiString): LongInt;
var
  I: Integer;
begin
  for I := 0 to High(Names) do
    if StrComp(Names[I].Name, PAnsiChar(Name)) = 0 then Exit(Names[I].Index);
  raise Exception.Create('there is no ' + Name);
end;

// The next line; False at the end of the input. Room is doubled: ReadLn would copy a long line over and over.
function ReadRequest(var Line: AnsiString): Boolean;
var
  I, Had: SizeInt;
begin
  Had := 0;
  repeat
    if Next >= Filled then
    begin
      Next := 0;
      Filled := FileRead(StdInputHandle, Buffer, SizeOf(Buffer));
      if Filled <= 0 then Exit(False);
    end;
    I := IndexByte(Buffer[Next], Filled - Next, 10);
    Result := I >= 0;
    if not Result then I := Filled - Next;
    if Had + I > Length(Line) then SetLength(Line, 2 * (Had + I));
    if I > 0 then Move(Buffer[Next], Line[Had + 1], I);
    Inc(Had, I);
    Inc(Next, I + 1);
  until Result;
  SetLength(Line, Had);
end;

procedure ReadArguments;
var
  I, At: Integer;
  Word: AnsiString;
begin
  Arguments := nil;
  SetLength(Arguments, Words.Count);
  for I := 0 to Words.Count - 1 do
  begin
    Word := Words[I];
    At := Pos('@', Word);
    case Word[1] of
      'n': Arguments[I].Number := InNumber(I);
      'm':
        begin
          Arguments[I].Bytes := BytesOf(Copy(Word, 2, At - 2), 1);
          Arguments[I].Memory := PAnsiChar(Arguments[I].Bytes) + StrToInt64(Copy(Word, At + 1, MaxInt));
        end;
      '=': Arguments[I].Memory := Arguments[StrToInt(Copy(Word, 2, At - 2))].Memory;
    end;
  end;
end;

function AnswerTo(const Line: AnsiString): AnsiString;
var
  What, Name: AnsiString;
  I: Integer;
begin
  Words.DelimitedText := Line;
  What := Words[0];
  Name := Words[1];
  Words.Delete(0);
  Words.Delete(0);
  Answer := 'v';
  Others := '';
  if What = 'enter' then
  begin
    if not SetCurrentDir(TextOf(Name)) then raise Exception.Create('cannot enter ' + TextOf(Name));
    Exit('ok');
  end;
  if What = 'friendly' then
  begin
    FriendlyCall(IndexOf(FriendlyNames, Name));
    Exit(Answer + Others);
  end;
  ReadArguments;
  ExactCall(IndexOf(ExactNames, Name), Arguments);
  for I := 0 to High(Arguments) do
    if Arguments[I].Bytes <> nil then Others := Others + ' m' + HexOf(PAnsiChar(Arguments[I].Bytes), Length(Arguments[I].Bytes) - 1);
  Result := Answer + Others;
end;

var
  Line: AnsiString;
  Written: array[0..65535] of AnsiChar = '';
begin
  SetTextBuf(Output, Written, SizeOf(Written));
  Words := TStringList.Create;
  Words.Delimiter := ' ';
  Words.StrictDelimiter := True;
  Opened := TStringList.Create;
  while ReadRequest(Line) do
  begin
    try
      Line := AnswerTo(Line);
    except
      on E: Exception do Line := '!' + E.ClassName + ': ' + E.Message;
    end;
    WriteLn(Output, Line);
    Flush(Output);
  end;
end.
