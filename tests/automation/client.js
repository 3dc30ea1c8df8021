// What is particular to JScript: it has no variables by reference, and its own kinds of arrays, dates and objects.
function made(name) { return new ActiveXObject("quorkit." + name); }
function is(found, wanted) { if (found !== wanted) WScript.Echo("not ok: " + found + ", not " + wanted); }
function fails(number, text, action) {
    try { action(); } catch (e) {
        is((e.number >>> 0).toString(16), number);
        if (text) is(e.description, text);
        return;
    }
    WScript.Echo("not ok: no error " + number);
}
function listed(container) {
    var all = [];
    for (var each = new Enumerator(container); !each.atEnd(); each.moveNext()) all.push(each.item());
    return all.join();
}

var strings = made("GQuorStrings"), convert = made("GQuorConvert"), tools = made("GQuorTools");
is(strings.lpad("0", 7, "3"), "007");
is(strings.SplitAppVersionString("1.2.3.4", 0, 0, 0, 0), 0);

var ini = made("QuorInifile"), other = made("QuorInifile");
ini.IniFileName = "C:\\a.ini";
is(ini.inifilename, "C:\\a.ini");
is(other.IniFileName === ini.IniFileName, false);

// Default members and elements of what the library gives back, of its arrays too.
var fields = strings.ParseString("a=1,b=two");
is(fields("b") + fields(1) + fields.Item("A"), "two11");
is(listed(fields), "1,two");
var table = new VBArray(convert.CollectionToArray(fields));
is(table.dimensions() + ":" + table.ubound(2) + ":" + table.getItem(0, 1) + ":" + table.toArray(), "2:1:b:a,1,b,two");
var values = made("GQuorRegistry").Reg_EnumKeyValuesEx("HKCU\\Software\\quorkit none");
values.Add("k", "v");
values.Item("j") = 5;
is(listed(values) + ":" + new VBArray(values.Keys()).toArray() + ":" + values("j"), "k,j:k,j:5");
fails("800a1395", "", function() { new VBArray(strings.LPad("0", "7", 3)); });

// Errors, which are told with the runtime's number and text, and those of the call itself.
fails("800a005e", "Invalid use of Null", function() { strings.LPad("0", null, 3); });
fails("800a004c", "Path not found", function() { made("GQuorFile").LoadFileToByteArray("C:\\no\\such", ""); });
fails("800a01b6", "", function() { strings.Nothing(); });
fails("8002000f", "", function() { strings.LPad("0"); });
fails("8002000e", "", function() { strings.LPad("0", "7", 3, 4); });
fails("80020005", "", function() { strings.LPad("0", "7", "three"); });
fails("800a000d", "Type mismatch", function() { convert.ArrayToCollection(["no", "SAFEARRAY"]); });
fails("800a01ad", "", function() { made("GQuorNothing"); });

// Values of its own come back as what they were.
var kept = made("QuorCollection"), form = {Text: " 12 "};
var given = [undefined, null, true, 1.5, -2, "x", form, [1, 2], is, new Date(0)];
for (var i = 0; i < given.length; i++) is(kept.setValueByKey(given[i], "key" + i), i + 1);
for (i = 0; i < given.length; i++) is(kept.getValueByKey("KEY" + i), given[i]);
is(kept.getValueByKey("none"), "");
is(convert.cBoolEx(null), false);

// Its objects where a form, a collection or one of its functions is asked for.
is(tools.CheckTextBoxValue(form, 1), true);
var dialog = {Left: 0, Top: 0, Width: 200, Height: 100};
made("GQuorWindows").CenterUserFormInApplication(dialog, {Left: 10, Top: 20, Width: 400, Height: 300});
is(dialog.Left + "," + dialog.Top, "110,120");
is(convert.CollectionToStringToken({Count: 2, Item: function(i) { return "item" + i; }}, ";"), "item1;item2");
fails("800a002d", "", function() {
    convert.CollectionToStringToken({Count: 1, Item: function() { throw new Error(-2146828243, "own"); }}, ";");
});

// A date is a number of days that only its members take; here it is one of milliseconds.
var leap = tools.DateAddEx("2024-01-31", "m=1");
is(new Date(leap).getDate(), 29);
is(tools.DateAddEx(leap, "d=1") - leap, 86400000);

WScript.Echo("client.js: done");
