"""A row of the contract table as statements of VBScript, and what they tell."""
import datetime
import math
import os
import pathlib

from doors import CATALOGUE, MISSING, Answer, Cannot, Door, Failed, shown
from table import content, kind, same, split

TWO26 = 2**26
DAY_ZERO = datetime.date(1899, 12, 30).toordinal()
MILLISECONDS = 86400000  # of a day
UNKNOWN = {"type": "Variant", "byReference": False, "changed": False}  # a parameter too many
EMPTY = [], {"bytes": ""}, {"array": []}
OBJECTS = {"Nothing", "Collection", "Dictionary", "Picture", "Object"}
GLOBALS = {name.lower() for name in CATALOGUE.classes if name.startswith("G")}


def text(value):
    """An expression for a text; the script has nothing beyond ASCII."""
    words, run = [], ""
    units = value.encode("utf-16-le", "surrogatepass")
    for at in range(0, len(units), 2):
        unit = units[at] + 256 * units[at + 1]
        if 32 <= unit < 127:
            run += '""' if unit == 34 else chr(unit)
            continue
        words += [f'"{run}"'] * bool(run) + [f"U({unit})"]
        run = ""
    return " & ".join(words + [f'"{run}"'] * bool(run or not words))


def double(value):
    if value.is_integer() and abs(value) < 2**31:
        return f"CDbl({int(value)})"
    mantissa, exponent = math.frexp(value)
    high, low = divmod(abs(int(mantissa * 2**53)), TWO26)
    sign = "" if value > 0 else "-"
    return f"Dbl({sign}{high}, {sign}{low}, {exponent - 53})"


def days(date):
    """The number of a date."""
    if not isinstance(date, str):
        raise Cannot("a date outside the calendar")
    when = datetime.datetime.fromisoformat(date)
    serial = when.toordinal() - DAY_ZERO
    clock = (when - when.replace(hour=0, minute=0, second=0, microsecond=0)).total_seconds() * 1000 / MILLISECONDS
    return serial + (-clock if serial < 0 else clock)


def notation(one):
    """What the script has told, from the inside out, in the table's notation."""
    if "double" in one:
        high, low, exponent = one["double"]
        return math.ldexp(high * TWO26 + low, exponent - 53)
    if "date" in one:
        day, clock = math.trunc(one["date"]), round(abs(math.fmod(one["date"], 1)) * MILLISECONDS)
        day, clock = day + clock // MILLISECONDS, clock % MILLISECONDS
        when = datetime.datetime.fromordinal(DAY_ZERO + day) + datetime.timedelta(milliseconds=clock)
        return {"date": when.isoformat(timespec="milliseconds").removesuffix(".000")}
    return one


class Script(Door):
    """Takes each row twice: to write it, and with the answers to compare them."""

    def __init__(self, folder):
        super().__init__(None, None)
        self.folder, self.answers, self.forms = folder, None, {}

    def begin(self, row, place):
        super().begin(row, place)
        self.code, self.variables, self.told = [], 0, 0
        self.unknown = {"Result"}  # variables that hold an object or a value

    def windows(self, path):
        return text("Z:" + str(path).replace("/", "\\"))

    def variable(self, expression=None, object_=False, brackets=""):
        self.variables += 1
        name = f"v{self.variables}"
        self.code.append(f"Dim {name}{brackets}")
        if expression in self.unknown:
            self.code.append(f"If IsObject({expression}) Then Set {name} = {expression} Else {name} = {expression}")
        elif expression is not None:
            self.code.append(f"{'Set ' * object_}{name} = {expression}")
        return name

    def key(self):
        self.told += 1
        return f"{os.path.basename(self.place.folder)}.{self.told}"

    def take(self, step):
        if "file" not in step:
            return super().take(step)
        path = pathlib.Path(self.place.folder, step["file"])
        aside = self.folder / self.key()
        if "holds" in step:
            self.code.append(f"FSO.CopyFile {self.windows(aside)}, {self.windows(path)}")
            if self.answers is None:
                path.parent.mkdir(parents=True, exist_ok=True)
                aside.write_bytes(content(step["holds"]).encode(errors="surrogateescape"))
            return None
        there = self.windows(path)
        self.code.append(f"If FSO.FileExists({there}) Then FSO.CopyFile {there}, {self.windows(aside)}")
        if self.answers is not None:
            found = aside.read_bytes().decode(errors="surrogateescape") if aside.exists() else None
            if not same(content(step["gives"]), found):
                raise Failed(shown(found))
        return None

    def created(self, class_name):
        made = f'CreateObject("quorkit.{class_name}")'
        if class_name == "Collection":
            made = "GQuorConvert.ArrayToCollection(Array())"
        if class_name == "Dictionary":
            made = 'GQuorRegistry.Reg_EnumKeyValuesEx("HKCU\\Software\\quorkit none")'
        return {"object": self.variable(made, True)}

    def foreign(self, properties):
        form = self.forms.setdefault(tuple(properties), f"Form{len(self.forms)}")
        made = self.variable(f"New {form}", True)
        for name, value in properties.items():
            self.code.append(f"{'Set ' * (kind(value) in OBJECTS)}{made}.{name} = {self.said(value, 'Variant')}")
        return {"object": made}

    def said(self, value, wanted):
        """An expression for a value where a type is wanted."""
        what = kind(value)
        if what == "String":
            return text(value)
        if what in ("Boolean", "Empty"):
            return "Empty" if value is None else str(value)
        if what in ("Long", "Double"):
            return f"CLng({value})" if what == "Long" else double(value)
        if value in EMPTY:
            return self.variable(brackets="()")
        if isinstance(value, list):
            return f"Array({', '.join(self.said(one, 'Variant') for one in value)})"
        held = value[what.lower()]
        if value.get("lower") not in (None, 0, [0, 0]):
            raise Cannot("an array that does not count from 0")
        if what in ("Null", "Nothing", "Missing"):
            return what.replace("Missing", "")
        if what == "Array":
            return self.said(held, wanted)
        if what == "Object" and isinstance(held, str):
            return held
        if what == "Integer":
            return f"CInt({held})"
        if what == "Date":
            return f"CDate({double(float(days(held)))})"
        if what == "Bytes":
            return f"Bytes({text(held)})"
        if what in ("Table", "Collection", "Dictionary", "Picture"):
            return getattr(self, what.lower())(held, wanted)
        raise Cannot(f"{what} as an argument")

    def table(self, lines, _):
        name = self.variable()
        self.code.append(f"ReDim {name}({len(lines[0]) - 1}, {len(lines) - 1})")
        for j, line in enumerate(lines):
            for i, one in enumerate(line):
                cell = "Set " * (kind(one) in OBJECTS) + f"{name}({i}, {j})"
                self.code.append(f"{cell} = {self.said(one, 'Variant')}")
        return name

    def collection(self, entries, wanted):
        """The client's own where one will do: but the library does not ask such a one for keys."""
        keys = [one["key"].lower() for one in entries if "key" in one]
        if len(set(keys)) < len(keys):
            raise Cannot("a collection with the same key twice")
        if keys:
            pairs = self.table([[one.get("key", ""), one["item"]] for one in entries], wanted)
            return self.variable(f"GQuorConvert.ArrayToCollection({pairs})", True)
        made = self.created("Collection")["object"]
        if wanted == "Collection":
            self.code[-1] = f"Set {made} = New List"
        for one in entries:
            tail = ", Empty" if wanted == "Collection" else ""
            self.code.append(f"{made}.Add {self.said(one['item'], 'Variant')}{tail}")
        return made

    def dictionary(self, entries, wanted):
        made = self.created("Dictionary")["object"]
        if wanted == "Dictionary":
            self.code[-1] = f'Set {made} = CreateObject("Scripting.Dictionary")'
        for key, item in entries:
            self.code.append(f"{made}.Add {self.said(key, 'Variant')}, {self.said(item, 'Variant')}")
        return made

    def picture(self, base64, _):
        made = self.variable("New PictureFile", True)
        self.code.append(f"{made}.File = Bytes({text(base64)})")
        return made

    def ask(self, step, given, named):
        if named:
            raise Cannot("arguments by name")
        way, owner, member = split(step)
        if owner in self.kept:
            owner = self.kept[owner]["object"]
        elif owner.lower() not in GLOBALS:
            owner = f'CreateObject("quorkit.{owner}")'
        parameters = self.member(step).get("parameters", [])
        parameters = parameters + [UNKNOWN] * (len(given) - len(parameters))
        while way != "let" and given[-1:] == [MISSING]:
            given = given[:-1]
        words, finals = [], []
        for parameter, value in zip(parameters, given):
            filled = parameter["type"] == "Byte()" and parameter["changed"]
            word = "Empty" if filled and value in EMPTY else self.said(value, parameter["type"])
            final = "null"
            if parameter["byReference"] and value != MISSING:
                word = self.variable(word, kind(value) in OBJECTS)
                final = self.shown(word, self.value(step.get("changes", {}).get(parameter["name"], value)))
            words.append(word)
            finals.append(final)
        self.code.append("Reset")
        if way == "let":
            assigned = "Set " * (kind(given[-1]) in OBJECTS) + f"{owner}.{member}"
            self.code.append(assigned + f"({', '.join(words[:-1])})" * (len(words) > 1) + f" = {words[-1]}")
        else:
            self.code.append(f"Take {owner}.{member}" + f"({', '.join(words)})" * bool(words))
        key = self.key()
        result = self.shown("Result", self.value(step.get("gives")))
        shown_finals = ' & "," & '.join(f'"{one}"' if one == "null" else one for one in finals) or '""'
        self.code += ["number = Err.Number", f'Tell "{key}", number, {result}, {shown_finals}']
        if "as" in step:
            self.unknown.add(self.variable("Result"))
        if self.answers is None:
            return Answer(error=step.get("error"))
        if key not in self.answers:
            raise Failed("no answer")
        told = self.answers[key]
        return Answer(told["result"], told["finals"], told["error"] or None)

    def shown(self, variable, wanted):
        if kind(wanted) == "Object" and isinstance(wanted["object"], str):
            return f'ShownAs({variable}, {wanted["object"]}, "{wanted["object"]}")'
        return f"{'ShownTable' if kind(wanted) == 'Table' else 'Shown'}({variable})"

    def compare(self, step, given, named, answer):
        if self.answers is not None:
            super().compare(step, given, named, answer)
        if "as" in step:
            value = self.kept.get(step["as"])
            if self.answers is None or kind(value) in OBJECTS:
                self.kept[step["as"]] = {"object": f"v{self.variables}"}
            self.classes[step["as"]] = self.member(step).get("result", "")
