// The cheque run of a small business: reads payees from a CSV file, cleans and checks them, and writes a cheque for each
// that is in order, on the screen and in a table.
//
//     fpc -FU. -Fu$VEXLOR/pascal cheques.pas
//     ./cheques PAYEES.csv CHEQUES.dbf
program Cheques;

{$MODE DELPHI}{$H+}

uses
  SysUtils, Fgl, CsvDocument, Vexlor, VexlorConsts;

const
  LineWidth = 64;
  AmountWidth = 12;
  MemoWidth = 40;
  CentsOver100 = 0;
  Structure = 'NUMBER,N,6:PAYEE,C,30:TOWN,C,20:STATE,C,2:DATED,D:AMOUNT,N,12,2:CLEARED,L:MEMO,M';

type
  TPayee = record
    Name, Town, State, Zip, Date, Amount, Memo: string;
  end;

var
  Csv: TCSVDocument;
  Table: TVexlorTable;
  Paid: TFPGMap<string, string>;  // who, by sound and amount
  Number: Integer = 1000;
  Refused: Integer = 0;

function Field(Row: Integer; const Column: string): string;
begin
  Result := Csv.Cells[Csv.IndexOfCol(Column, 0), Row];
end;

function WithoutCommas(const Digits: string): string;
begin
  Result := StrTran(Digits, ',', '', 1, -1);
end;

function Cleaned(Row: Integer): TPayee;
begin
  // Quotes, asterisks, stops and blanks around a name are how it was typed, not what it is.
  Result.Name := ChrTrim(Field(Row, 'name'), ' '#9'"*.', VX_TRIM_BOTH);
  Result.Town := AllTrim(Field(Row, 'town'));
  Result.State := AllTrim(Field(Row, 'state'));
  if Length(Result.State) <> 2 then Result.State := StateCode(Result.State);
  Result.Zip := AllTrim(Field(Row, 'zip'));
  Result.Date := AllTrim(Field(Row, 'date'));
  // 1,250 and 1250.00 are one amount; what is no number is none.
  Result.Amount := WithoutCommas(Comma(WithoutCommas(AllTrim(Field(Row, 'amount')))));
  Result.Memo := Field(Row, 'memo');
end;

function ObjectionTo(const Payee: TPayee): string;
var
  Bill: string;
begin
  if StrEmpty(Payee.Name) then Exit('no payee');
  if Payee.Amount = '' then Exit('the amount is no number');
  if Length(Payee.Amount) > AmountWidth then Exit('the amount is too large for a cheque');
  if not CheckDate(Payee.Date) then Exit('there is no such date');
  if not IsZip(Payee.State, Payee.Zip) then Exit('the ZIP code is not in this state');
  // The same sound, the same amount: perhaps the same bill, typed twice.
  Bill := Soundex(Payee.Name, '', 6) + ' ' + Payee.Amount;
  if Paid.IndexOf(Bill) >= 0 then Exit('sounds like ' + Paid[Bill] + ', with the same amount: paid twice?');
  Paid[Bill] := Payee.Name;
  Result := '';
end;

procedure WriteCheque(const Payee: TPayee);
const
  Titles: array[Boolean] of string = ('        ', 'Memo    ');
var
  Line: Integer;
  Text: string;
begin
  Text := GetJDatef(DateToJulian(Payee.Date), 'MMMM DDD, YYYY');
  WriteLn('No. ', Number, StrJustify(Text, LineWidth - 8, VX_JUSTIFY_RIGHT_TRIMMED, ' '));
  // Stars in front of an amount leave no room for a digit more.
  WriteLn('Pay     ', UnTrim(CapFirst(Payee.Name), LineWidth - 8 - 2 - AmountWidth, '.'), '$ ',
    StrJustify(Payee.Amount, AmountWidth, VX_JUSTIFY_RIGHT_TRIMMED, '*'));
  WriteLn('        ', NumToDollars(Payee.Amount, CentsOver100));
  WriteLn('        ', Payee.Town, ', ', StateCode(Payee.State), ' ', Payee.Zip);
  for Line := 1 to WrapCount(Payee.Memo, MemoWidth) do
  begin
    StrWrap(Payee.Memo, Line, MemoWidth, Text);
    WriteLn(Titles[Line = 1], AllTrim(Text));
  end;
  WriteLn(Replicate('-', LineWidth));
  WriteLn;
end;

procedure Enter(const Payee: TPayee);
begin
  if (Table.Append(1) = 0) or not Table.Replace('NUMBER', IntToStr(Number)) or not Table.Replace('PAYEE', Payee.Name)
    or not Table.Replace('TOWN', Payee.Town) or not Table.Replace('STATE', Payee.State)
    or not Table.Replace('DATED', GetJDatef(DateToJulian(Payee.Date), 'YYYYMMDD'))
    or not Table.Replace('AMOUNT', Payee.Amount) or not Table.Replace('CLEARED', 'F')
    or not Table.Replace('MEMO', Payee.Memo) then
    raise EInOutError.Create('cannot write to the table');
end;

procedure Pay(Row: Integer);
var
  Payee: TPayee;
  Objection: string;
begin
  Payee := Cleaned(Row);
  Objection := ObjectionTo(Payee);
  if Objection <> '' then
  begin
    Inc(Refused);
    WriteLn('no cheque for [', Field(Row, 'name'), ']: ', Objection, LineEnding);
    Exit;
  end;
  Inc(Number);
  WriteCheque(Payee);
  Enter(Payee);
end;

procedure Run(const CsvPath, DbfPath: string);
var
  Row: Integer;
begin
  Csv.EqualColCountPerRow := False;  // so that empty lines show
  Csv.LoadFromFile(CsvPath);
  Table := DbfStrCreate(DbfPath, Structure);
  if Table = nil then raise EInOutError.Create('cannot create the table ' + DbfPath);
  for Row := 1 to Csv.RowCount - 1 do
    if Csv.HasCell(1, Row) then Pay(Row);
  // All is on the disk when this returns.
  if Table.Close <> 0 then raise EInOutError.Create('cannot close the table');
  WriteLn(Number - 1000, ' cheques written, ', Refused, ' payees to look at');
end;

begin
  if ParamCount <> 2 then
  begin
    WriteLn(StdErr, 'usage: cheques PAYEES.csv CHEQUES.dbf');
    Halt(2);
  end;
  Csv := TCSVDocument.Create;
  Paid := TFPGMap<string, string>.Create;
  try
    try
      Run(ParamStr(1), ParamStr(2));
    finally
      Table.Free;
      Paid.Free;
      Csv.Free;
    end;
  except
    on Error: Exception do
    begin
      WriteLn(StdErr, Error.Message);
      Halt(1);
    end;
  end;
end.
