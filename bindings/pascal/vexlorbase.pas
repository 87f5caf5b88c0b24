// SPDX-License-Identifier: MIT
//
// Loads the library, and has what the functions of unit Vexlor are made of. The library is found by its name when the program starts: some of
// its names are the C library's, too, to which a program on Linux that links them by name would be bound; and a missing library is
// told in words.
unit VexlorBase;

{$IFDEF FPC}{$MODE DELPHI}{$MODESWITCH CVAR}{$H+}{$ENDIF}

interface

uses
  SysUtils;

type
  /// <summary>The library is not there, or is an older one.</summary>
  EVexlorMissing = class(Exception);

  /// <summary>What is open until it is closed.</summary>
  TVexlorHandle = class
  private
    FNumber: Int64;
    FIsOpen: Boolean;
  protected
    procedure Forget;
  public
    constructor Create(Number: Int64);
    function IsOpen: Boolean;
    /// <summary>The library's number of it; EInvalidOpException where it is closed, or nil.</summary>
    function Handle: Int64;
  end;

/// <summary>The exported function of that name.</summary>
function Address(Name: PAnsiChar): Pointer;

/// <summary>EArgumentException where the text has a NUL in it, behind which the library would not look.</summary>
procedure NeedText(const Text: AnsiString);
function Len(const Text: AnsiString): Int64;
function HostRoom: Int64;
/// <summary>Bytes of 0, as many as a result may need.</summary>
function Destination(Room: Int64): AnsiString;
function Editable(const Text: AnsiString; Room: Int64): AnsiString;
/// <summary>A destination as the text that lies in it.</summary>
procedure CutAtEnd(var Text: AnsiString);
/// <summary>The bytes of a block from where a call begins; ERangeError where it has fewer than the call needs, in front of it, too.</summary>
function Within(const Block: TBytes; Needed: Int64; Before: Int64 = 0): Pointer;
/// <summary>How far the second lies behind the first, -1 where there is none.</summary>
function Place(Start, Found: Pointer): LongInt;

implementation

uses
{$IFDEF FPC}
  dynlibs,
{$ELSE}
  Windows,
{$ENDIF}
  Math;

const
  LargestRoom = High(LongInt) - 64;
  LeastHostRoom = 1 shl 18;  // no program is started with a longer text
{$IFDEF MSWINDOWS}
  LibraryName = {$IFDEF WIN64}'Vexlor64.dll'{$ELSE}'Vexlor32.dll'{$ENDIF};
{$ELSE}
  LibraryName = 'libvexlor32.so.5';

var
  environ: PPAnsiChar; external name 'environ';
{$ENDIF}

var
  TheLibrary: {$IFDEF FPC}TLibHandle{$ELSE}HMODULE{$ENDIF};
  LibraryPath: string;

// VEXLOR32_LIBRARY names the file; else it is beside the program, or where the system looks.
procedure Load;
var
  Why: string;
begin
  LibraryPath := GetEnvironmentVariable('VEXLOR32_LIBRARY');
  if LibraryPath = '' then
  begin
    LibraryPath := ExtractFilePath(ParamStr(0)) + LibraryName;
    if not FileExists(LibraryPath) then LibraryPath := LibraryName;
  end;
  TheLibrary := LoadLibrary({$IFDEF FPC}LibraryPath{$ELSE}PChar(LibraryPath){$ENDIF});
  if TheLibrary <> 0 then Exit;
  Why := {$IFDEF FPC}GetLoadErrorStr{$ELSE}SysErrorMessage(GetLastError){$ENDIF};
  raise EVexlorMissing.CreateFmt('cannot load %s into this %d-bit program: %s; VEXLOR32_LIBRARY may name the file',
    [LibraryPath, 8 * SizeOf(Pointer), Why]);
end;

function Address(Name: PAnsiChar): Pointer;
begin
  if TheLibrary = 0 then Load;
  Result := GetProcAddress(TheLibrary, Name);
  if Result = nil then raise EVexlorMissing.CreateFmt('%s has no %s', [LibraryPath, string(AnsiString(Name))]);
end;

procedure NeedText(const Text: AnsiString);
begin
  if Int64(StrLen(PAnsiChar(Text))) <> Len(Text) then raise EArgumentException.Create('the text has a NUL in it');
end;

function Len(const Text: AnsiString): Int64;
begin
  Result := Length(Text);
end;

function HostRoom: Int64;
{$IFNDEF MSWINDOWS}
var
  Entry: PPAnsiChar;
{$ENDIF}
begin
  Result := LeastHostRoom;
{$IFNDEF MSWINDOWS}
  Entry := environ;
  while (Entry <> nil) and (Entry^ <> nil) do
  begin
    Result := Max(Result, Int64(StrLen(Entry^)) + 1);
    Inc(Entry);
  end;
{$ENDIF}
end;

function Destination(Room: Int64): AnsiString;
begin
  if Room > LargestRoom then raise ERangeError.CreateFmt('the result could need %d bytes', [Room]);
  Result := StringOfChar(AnsiChar(#0), Max(Room, Int64(1)));
end;

function Editable(const Text: AnsiString; Room: Int64): AnsiString;
begin
  Result := Destination(Max(Room, Len(Text) + 1));
  if Text <> '' then Move(Text[1], Result[1], Length(Text));
end;

procedure CutAtEnd(var Text: AnsiString);
begin
  SetLength(Text, StrLen(PAnsiChar(Text)));
end;

function Within(const Block: TBytes; Needed, Before: Int64): Pointer;
var
  Front: Int64;
begin
  Front := Max(-Before, Int64(0));
  if Length(Block) < Needed + Front then
    raise ERangeError.CreateFmt('%d bytes, where the call needs %d', [Length(Block), Needed + Front]);
  Result := Pointer(Block);
  if Result <> nil then Inc(PByte(Result), Front);
end;

function Place(Start, Found: Pointer): LongInt;
begin
  Result := -1;
  if Found <> nil then Result := PAnsiChar(Found) - PAnsiChar(Start);
end;

constructor TVexlorHandle.Create(Number: Int64);
begin
  FNumber := Number;
  FIsOpen := True;
end;

procedure TVexlorHandle.Forget;
begin
  FIsOpen := False;
end;

function TVexlorHandle.IsOpen: Boolean;
begin
  Result := (Self <> nil) and FIsOpen;
end;

function TVexlorHandle.Handle: Int64;
begin
  if not IsOpen then raise EInvalidOpException.Create('the table or file is not open');
  Result := FNumber;
end;

end.
