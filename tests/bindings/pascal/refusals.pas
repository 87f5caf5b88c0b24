// What unit Vexlor never hands to the library is an exception, and nothing is written; what looks alike is passed on.
program refusals;

{$MODE DELPHI}{$H+}

uses
  SysUtils, VexlorBase, VexlorConsts, Vexlor;

type
  TAct = procedure;

var
  Failures: Integer;
  Kept: TVexlorFile;
  Block: TBytes;

procedure Check(Holds: Boolean; const What: string);
begin
  if Holds then Exit;
  Inc(Failures);
  WriteLn('failed: ', What);
end;

procedure Refused(Act: TAct; Wanted: ExceptClass; const What: string);
var
  Given: string;
begin
  Given := 'none';
  try
    Act;
  except
    on E: Exception do Given := E.ClassName;
  end;
  Check(Given = Wanted.ClassName, What + ': ' + Given + ' instead of ' + Wanted.ClassName);
end;

procedure TextWithNul;
begin
  AllTrim('a'#0'b');
end;

procedure HugeResult;
begin
  Replicate('x', High(LongInt));
end;

procedure ShortBlock;
begin
  Kept.Read(Block, 5);
end;

procedure ClosedFile;
begin
  Kept.Len;
end;

procedure NoTable;
begin
  DbfOpen('/there/is/none.dbf', VX_OPEN_READ).FieldCount;
end;

procedure ClosedTwice;
begin
  Kept.Close;
end;

var
  Text, Drive, Directory, Extension: AnsiString;
  Path: string;
begin
  Refused(TextWithNul, EArgumentException, 'a text with a NUL in it');
  Refused(HugeResult, ERangeError, 'a result of 2 GB');
  Refused(NoTable, EInvalidOpException, 'a method of a table that there is none of');

  Path := GetTempFileName(GetTempDir, 'vx');
  Kept := FCreate(Path, VX_ATTR_NORMAL);
  Check(Kept.Writestr('Hartwell') = 8, 'eight bytes are written');
  Kept.Seek(0, VX_SEEK_START);
  Block := TBytes.Create(1, 2, 3, 4);
  Refused(ShortBlock, ERangeError, 'a block of four bytes for five');
  Check((Block[0] = 1) and (Block[3] = 4) and (Kept.Tell = 0), 'nothing was read');
  Check((Kept.Read(Block, 4) = 4) and (Block[3] = Ord('t')), 'four bytes fit');
  Kept.Close;
  Refused(ClosedFile, EInvalidOpException, 'a method of a closed file');
  Refused(ClosedTwice, EInvalidOpException, 'closing twice');
  Kept.Free;

  Kept := FOpen(Path, VX_OPEN_READ + VX_SHARE_EXCLUSIVE);
  Kept.Free;
  Kept := FOpen(Path, VX_OPEN_READ + VX_SHARE_EXCLUSIVE);
  Check(Kept <> nil, 'the file was closed with its object');
  Kept.Free;
  DeleteFile(Path);

  Text := '  ' + IntToStr(12) + '  ';
  Text := AllTrim(Text);
  Check(Text = '12', 'the result goes to the variable that was the argument');
  Text := 'C:\BOOKS\' + IntToStr(12) + '.DBF';
  FSsplit(Text, Drive, Directory, Text, Extension);
  Check((Text = '12') and (Extension = '.DBF'), 'and so does an output');
  Check(Calculate('10^400', '%.0f') = 'inf', 'an overflow in the calculator is none of the program''s');
  if Failures > 0 then Halt(1);
  WriteLn('all refused');
end.
