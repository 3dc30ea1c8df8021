#!/usr/bin/env python3
"""automation.py PROGRAM [--door pascal|vbscript] [--launcher COMMAND] [--every N] [FILE...]

Says the contract table to the automation server, which is registered, as other people's clients do. PROGRAM is
automation/pascal/session.pas, which calls as compiled Pascal does, and has a control that runs VBScript.
Ends as doors.py does.
"""
import base64
import json
import os
import sys

from doors import CATALOGUE, MISSING, Answer, Cannot, Failed, Rpc, arguments, speak
from plain import BYTE, NOT_GIVEN, PLAIN, TEXT, VARIANT, plain, read
from table import ENVIRONMENT, each, kind, split

EMPTY = [], {"bytes": ""}, {"array": []}
OBJECTS = {"Nothing", "Collection", "Dictionary", "Picture", "Object"}
GLOBALS = sorted(name for name in CATALOGUE.classes if name.startswith("G"))
UNKNOWN_NAME = 0x80020006
# What a language makes of them for its programs.
NUMBERS = {0x80020003: 438, UNKNOWN_NAME: 438, 0x80020005: 13, 0x80020008: 13, 0x8002000A: 6, 0x8002000B: 9,
           0x8002000E: 450, 0x8002000F: 449, 0x80004002: 13, 0x8007000E: 7, 0x800401F3: 429}
WAYS = {"call": 1, "get": 2, "let": 4}


class Pascal(Rpc):
    KEPT = 0  # objects that all rows use
    TEXTS = TEXT  # what the elements of an array of texts are

    def message(self, *words):
        return " ".join(map(str, words))

    def answer(self, line, *_):
        answer = json.loads(line, object_hook=read)
        if "cannot" in answer:
            raise Cannot(answer["cannot"])
        if "failed" in answer:
            raise Failed(answer["failed"])
        return answer

    def request(self, *words):
        if self.display not in self.sessions:
            super().request("forget", 0)
            self.start()
        return super().request(*words)

    def start(self):
        pass

    def begin(self, row, place):
        super().begin(row, place)
        self.display = ""

    def forget(self):
        self.request("forget", self.KEPT)

    def said(self, value):
        """A value as the program reads it."""
        what = kind(value)
        held = value[what.lower()] if isinstance(value, dict) else value
        lower = value.get("lower", 0) if isinstance(value, dict) else 0
        if what in PLAIN:
            return ["plain", PLAIN[what], plain(value, what)]
        if what == "Missing":
            return ["plain", PLAIN["Error"], NOT_GIVEN]
        if what == "String":
            return ["text", held.encode("utf-16-be", "surrogatepass").hex()]
        if what == "Object":
            return ["object", held]
        if what == "Picture":
            return ["form", 1, "File", *self.said({"bytes": held})]
        if what == "Collection":
            keys = [one["key"].lower() for one in held if "key" in one]
            if len(set(keys)) < len(keys):
                raise Cannot("a collection with the same key twice")
            table = {"table": [[one.get("key", ""), one["item"]] for one in held]} if held else []
            return self.said(self.result("GQuorConvert", "ArrayToCollection", table))
        if what == "Dictionary":
            made = self.created(what)
            for pair in held:
                self.result(made, "Add", *pair)
            return self.said(made)
        elements = {"Bytes": base64.b64decode, "Table": lambda rows: sum(rows, [])}.get(what, list)(held)
        sizes = [len(held[0]), len(held)] if what == "Table" else [len(elements)]
        lows = lower if isinstance(lower, list) else [lower] * len(sizes)
        bounds = [bound for low, size in zip(lows, sizes) for bound in (low, low + size - 1)]
        element = BYTE if what == "Bytes" else self.TEXTS if set(map(kind, elements)) == {"String"} else VARIANT
        return ["array", element, len(sizes), *bounds, len(elements)] + [
            word for one in elements for word in (["plain", BYTE, one] if what == "Bytes" else self.said(one))]

    def call(self, target, way, member, given, named=()):
        """`given` are the arguments, each with how it is handed in."""
        if isinstance(target, str):
            made = self.request("create", f"quorkit.{target}")
            if "error" in made:
                return made
            target = made["result"]
        words = [word for how, value in reversed(given) for word in [how, *self.said(value)]]
        return self.request("call", target["object"], WAYS[way], member, len(given), len(named), *reversed(named),
                            *words)

    def result(self, target, member, *values):
        return self.call(target, "call", member, [("value", one) for one in values]).get("result", {}).get("result")

    def created(self, class_name):
        if class_name == "Collection":
            return self.result("GQuorConvert", "ArrayToCollection", [])
        if class_name == "Dictionary":
            return self.result("GQuorRegistry", "Reg_EnumKeyValuesEx", "HKCU\\Software\\quorkit none")
        return self.request("create", f"quorkit.{class_name}")["result"]

    def foreign(self, properties):
        form = [word for name, value in properties.items() for word in [name, *self.said(value)]]
        return self.request("hold", "form", len(properties), *form)["result"]

    def content(self, value):
        """What an object is that has no name shows in what it has."""
        if kind(value) != "Object" or value in self.kept.values():
            return each(self.content, value)
        if (keys := self.result(value, "Keys")) is not None:
            return {"dictionary": [[key, self.content(self.result(value, "Item", key))] for key in keys["array"]]}
        file, count = self.result(value, "File"), self.result(value, "Count")
        if file is not None or self.result(value, "Handle") is not None:
            return {"picture": file and file["bytes"]}
        if count is None or self.call(value, "get", "Item", []).get("error") == UNKNOWN_NAME - 2**32:
            return value
        pairs = self.result("GQuorConvert", "CollectionToArray", value).get("table", [[""]] * count)
        items = [{"item": self.content(self.result(value, "Item", i + 1))} for i in range(count)]
        return {"collection": [{"key": key[0]} | item if key[0] else item for key, item in zip(pairs, items)]}

    def ask(self, step, given, named):
        way, owner, member = split(step)
        parameters = self.member(step).get("parameters", [])
        names = [one["name"].lower() for one in parameters]
        known = dict(enumerate(parameters)) | dict(zip(names, parameters))
        order = list(enumerate(given)) + list(named.items())
        handed = []
        for name, value in order:
            one, how = known.get(name, {}), "value"
            if one.get("byReference"):
                fits = kind(value) == one["type"] or {kind(value), one["type"]} <= OBJECTS
                how = "variable" if fits else "variant"
            handed.append(("missing" if value == MISSING else how, self.suited(value, one)))
        answer = self.perform(self.kept.get(owner, owner), way, member, handed, list(named))
        if "error" in answer:
            code = answer["error"] % 2**32
            if named and code == UNKNOWN_NAME:
                raise Cannot("a name that no argument has, which is told as a member that is not there")
            return Answer(error=code & 0xFFFF if code >> 16 == 0x800A else NUMBERS.get(code, hex(code)))
        self.made = answer["result"]["result"]
        finals = dict(zip(dict(order), map(self.content, answer["result"]["finals"])))
        return Answer(self.content(self.made), [finals.get(i, finals.get(name)) for i, name in enumerate(names)])

    def suited(self, value, parameter):
        return {"bytes": ""} if parameter.get("type") == "Byte()" and value in EMPTY else value

    def perform(self, *call):
        return self.call(*call)

    def compare(self, step, given, named, answer):
        super().compare(step, given, named, answer)
        if "as" in step:
            self.kept[step["as"]] = self.made


def move(target, source):
    return f"If IsObject({source}) Then Set {target} = {source} Else {target} = {source}"


class VBScript(Pascal):
    """The program's control runs a statement for each call; values come and go as properties of `Host`."""

    KEPT, CONTROL, HOST = 2, {"object": 0}, {"object": 1}
    TEXTS = VARIANT  # the language makes no others

    def start(self):
        self.request("create", "MSScriptControl.ScriptControl")
        self.foreign(dict.fromkeys(["owner", "result", *(f"a{i}" for i in range(16))]))
        self.call(self.CONTROL, "let", "Language", [("value", "VBScript")])
        self.result(self.CONTROL, "AddObject", "Host", self.HOST)
        for name in GLOBALS:
            self.result(self.CONTROL, "AddObject", name, self.created(name), True)
        taking = move("result", "value")
        self.result(self.CONTROL, "AddCode", f"Dim owner, result\nSub Take(value)\n{taking}\nEnd Sub")
        self.arrays = 0

    def suited(self, value, parameter):
        """A variable that holds an array is given one of Variants."""
        return None if parameter.get("type") == "Byte()" and parameter["changed"] and value in EMPTY else value

    def perform(self, target, way, member, given, named):
        if named:
            raise Cannot("arguments by name")
        lines, words, back = ["result = Empty"], [], [move("Host.result", "result")]
        for i, (how, value) in enumerate(given):
            name = f"a{i}"
            if value in EMPTY:
                self.arrays += 1
                name = f"array{self.arrays}"
                lines.append(f"Dim {name}()")
            elif how != "missing":
                self.call(self.HOST, "let", name, [("value", value)])
                lines.append(move(name, f"Host.{name}"))
            words.append("" if how == "missing" else name)
            back += [move(f"Host.a{i}", name)] * (how in ("variable", "variant"))
        if target in GLOBALS and way != "let":
            owner = "" if CATALOGUE.member(target, member, way) else f"{target}."  # one it knows needs no owner
        else:
            made = self.request("create", f"quorkit.{target}") if isinstance(target, str) else {"result": target}
            if "error" in made:
                return made
            self.call(self.HOST, "let", "owner", [("value", made["result"])])
            lines.append("Set owner = Host.owner")
            owner = "owner."
        if way == "let":
            assigned = "Set " * (kind(given[-1][1]) in OBJECTS) + owner + member
            lines.append(assigned + f"({', '.join(words[:-1])})" * (len(words) > 1) + f" = {words[-1]}")
        else:
            while words and not words[-1]:
                words.pop()
            lines.append(f"Take {owner}{member}" + f"({', '.join(words)})" * bool(words))
        answer = self.call(self.CONTROL, "call", "ExecuteStatement", [("value", "\n".join(lines + back))])
        if "error" in answer:
            return answer
        finals = [self.result(self.HOST, f"a{i}") for i in range(len(given))]
        return {"result": {"result": self.result(self.HOST, "result"), "finals": finals}}


def main():
    options = arguments(__doc__, ["pascal", "vbscript"])
    command = [*options.launcher.split(), os.path.abspath(options.program)]
    failures = []
    for name, make in {"pascal": Pascal, "vbscript": VBScript}.items():
        if options.door in (None, name):
            failures += speak(make(command, {"": dict(os.environ, **ENVIRONMENT)}), name, options, "windows")
    print(*failures, sep="\n", end="\n" if failures else "")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
