{ Ten functions and a table, by the units for Free Pascal. }
program smoke;

{$mode objfpc}{$H+}

uses
  SysUtils, vexlor, vexlorconsts;

var
  Table: TVexlorTable;
  Number: Integer;

begin
  WriteLn(AllTrim('  Hartwell & Sons  '));
  WriteLn(StrCenter('PAID', 20, '*'));
  WriteLn(Token('Hartwell & Sons, Bristol', '', 3));
  WriteLn(NumToDollars('1,234.56', 0));
  WriteLn(NumToRoman(1999));
  WriteLn(Soundex('Smith', '', 4));
  WriteLn(Crc32(BytesOf('123456789'), $FFFFFFFF, 9));
  WriteLn(Ord(IsLeap(1996)));
  WriteLn(IntToJulian(2000, 1, 1));
  WriteLn(StrTran('Harwell & Sons, Harwell Road', 'Harwell', 'Hartwell', 1, -1));

  Table := DbfOpen('cheques', VX_OPEN_READ);
  try
    WriteLn(Table.Lastrec, ' records');
    for Number := 1 to Table.Lastrec do
    begin
      Table.Goto_(Number);
      WriteLn(Table.Field('PAYEE'), '|', Table.Field('AMOUNT'));
    end;
  finally
    Table.Free;
  end;
end.
