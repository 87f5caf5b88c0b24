// Makes the calls of the conformance library (conformance.h) through the units for Pascal.
program caller;

{$MODE DELPHI}{$H+}{$R+}{$Q+}

uses
  SysUtils, Classes, VexlorBase, VexlorConsts, Vexlor32, Vexlor;

const
  Core = 'vexlor_conformance';

type
  TCallName = record
    Name: PAnsiChar;
    Index: LongInt;
  end;
  TCall = procedure(Name: PAnsiChar; Count: LongInt); cdecl;

var
  Opened: TStringList;  // friendly objects by kind and handle

function vxc_run(Traits: LongInt; Errors: PAnsiChar; Call: TCall): LongInt; cdecl; external Core;
function vxc_is_friendly: LongInt; cdecl; external Core;
function vxc_kind(I: LongInt): LongInt; cdecl; external Core;
function vxc_number(I: LongInt): Int64; cdecl; external Core;
function vxc_memory(I: LongInt): PAnsiChar; cdecl; external Core;
function vxc_size(I: LongInt): Int64; cdecl; external Core;
function vxc_pointer(I: LongInt): PAnsiChar; cdecl; external Core;
procedure vxc_gave_number(Number: Int64); cdecl; external Core;
procedure vxc_gave_place(Place: Pointer); cdecl; external Core;
procedure vxc_gave_text(Text: PAnsiChar; Size: Int64); cdecl; external Core;
procedure vxc_gave_null; cdecl; external Core;
procedure vxc_refused(Words: PAnsiChar); cdecl; external Core;

procedure GiveText(const Value: AnsiString);
begin
  vxc_gave_text(PAnsiChar(Value), Length(Value));
end;

procedure GiveBlock(I: Integer; const Value: TBytes);
begin
  if vxc_kind(I) = Ord('B') then vxc_gave_text(PAnsiChar(Value), Length(Value));
end;

procedure GivePlace(Offset: LongInt);
begin
  if Offset < 0 then vxc_gave_null else vxc_gave_number(Offset);
end;

procedure GiveOpened(Kind: AnsiChar; Value: TVexlorHandle);
begin
  if Value = nil then
    vxc_gave_null
  else
  begin
    vxc_gave_number(Value.Handle);
    Opened.AddObject(Kind + IntToStr(Value.Handle), Value);
  end;
end;

// The one that was opened last, where a number was given again; nil for what never was.
function InOpened(I: Integer): TObject;
var
  J: Integer;
begin
  Result := nil;
  for J := 0 to Opened.Count - 1 do
    if Opened[J] = AnsiChar(vxc_kind(I)) + IntToStr(vxc_number(I)) then Result := Opened.Objects[J];
end;

function InText(I: Integer): AnsiString;
begin
  SetString(Result, vxc_memory(I), vxc_size(I));
end;

function InBytes(I: Integer): TBytes;
begin
  Result := nil;
  SetLength(Result, vxc_size(I));
  if Result <> nil then Move(vxc_memory(I)^, Result[0], Length(Result));
end;

{$I pascal_dispatch.inc}

function IndexOf(const Names: array of TCallName; Name: PAnsiChar): LongInt;
var
  I: Integer;
begin
  for I := 0 to High(Names) do
    if StrComp(Names[I].Name, Name) = 0 then Exit(Names[I].Index);
  raise Exception.Create('there is no ' + Name);
end;

procedure Call(Name: PAnsiChar; Count: LongInt); cdecl;
begin
  try
    if vxc_is_friendly <> 0 then FriendlyCall(IndexOf(FriendlyNames, Name)) else ExactCall(IndexOf(ExactNames, Name));
  except
    on E: Exception do vxc_refused(PAnsiChar(E.ClassName + ': ' + E.Message));
  end;
end;

procedure Check(Holds: Boolean; const What: string);
begin
  if Holds then Exit;
  WriteLn('failed: ', What);
  Halt(1);
end;

// What only this language has: results that go where an argument was, and destructors.
procedure CheckOwn;
var
  Text, Drive, Directory, Extension: AnsiString;
  Path: string;
begin
  Text := '  ' + IntToStr(12) + '  ';
  Text := AllTrim(Text);
  Check(Text = '12', 'the result goes to the variable that was the argument');
  Text := 'C:\BOOKS\' + IntToStr(12) + '.DBF';
  FSsplit(Text, Drive, Directory, Text, Extension);
  Check((Text = '12') and (Extension = '.DBF'), 'and so does an output');
  Check(Calculate('10^400', '%.0f') = 'inf', 'an overflow in the calculator is none of the program''s');
  Path := GetTempFileName(GetTempDir, 'vx');
  FCreate(Path, VX_ATTR_NORMAL).Free;
  FOpen(Path, VX_OPEN_READ + VX_SHARE_EXCLUSIVE).Free;
  Check(FOpen(Path, VX_OPEN_READ + VX_SHARE_EXCLUSIVE) <> nil, 'the file was closed with its object');
  DeleteFile(Path);
end;

begin
  Opened := TStringList.Create;
  if vxc_is_friendly <> 0 then CheckOwn;
  Halt(vxc_run(1, 'EArgumentException|ERangeError|EInvalidOpException', Call));
end.
