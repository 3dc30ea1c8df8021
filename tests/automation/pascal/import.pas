{ import LIBRARY UNIT: makes a unit of the type library in a file. }
program import;
{$mode objfpc}
uses typelib;
begin
  with TTypeLibImporter.Create(nil) do
  begin
    InputFileName := WideString(ParamStr(1));
    AppendVersionNumber := False;
    OutputFileName := ParamStr(2);
    Execute;
  end;
end.
