#!/usr/bin/env python3
"""pascal.py PROGRAM [--launcher COMMAND] [--every N] [FILE...]

Says the contract table to the automation server, which is registered, as a program of Free Pascal does:
PROGRAM is automation/pascal/session.pas. Ends as doors.py does.
"""
import argparse
import base64
import json
import os
import struct
import sys

from doors import MISSING, Answer, Cannot, Failed, Rpc, arguments, speak
from script import EMPTY, OBJECTS, days, notation
from table import ENVIRONMENT, each, kind, split

WAYS = "call", "get", "let"
TEXT, VARIANT = 8, 12
# What a language makes numbers of, so that they are those of a macro.
NUMBERS = {0x80020003: 438, 0x80020004: 448, 0x80020005: 13, 0x80020006: 438, 0x80020008: 13, 0x8002000A: 6,
           0x8002000B: 9, 0x8002000E: 450, 0x8002000F: 449, 0x80004002: 13, 0x8007000E: 7, 0x800401F3: 429}
UNKNOWN_NAME = 0x80020006 - 2**32


def number(answer):
    code = answer["error"] % 2**32
    return code & 0xFFFF if code >> 16 == 0x800A else NUMBERS.get(code, hex(code))


def bits(value):
    return struct.unpack("<q", struct.pack("<d", value))[0]


def words(value):
    """A value as the program reads it."""
    what = kind(value)
    held = value[what.lower()] if isinstance(value, dict) else value
    lower = value.get("lower", 0) if isinstance(value, dict) else 0
    if what in ("Empty", "Null", "Missing", "Nothing"):
        return [what]
    if what in ("Boolean", "Long", "Integer", "Error", "Object"):
        return [what, int(held)]
    if what == "String":
        return [what, held.encode("utf-16-be", "surrogatepass").hex()]
    if what in ("Double", "Date"):
        return [what, bits(held if what == "Double" else float(days(held)))]
    if what == "Bytes":
        data = base64.b64decode(held)
        return [what, lower, len(data), *data]
    if what == "Array":
        return [what, lower, len(held), element(held), *listed(held)]
    if what == "Table":
        cells = sum(held, [])
        return [what, *(lower or [0, 0]), len(held), len(held[0]), element(cells), *listed(cells)]
    if what == "Collection":
        keys = [one["key"].lower() for one in held if "key" in one]
        if len(set(keys)) < len(keys):
            raise Cannot("a collection with the same key twice")
        return [what, *words({"table": [[one.get("key", ""), one["item"]] for one in held]} if held else [])]
    if what == "Dictionary":
        return [what, len(held), *listed(sum(held, []))]
    if what == "Picture":
        return ["Form", 1, "File", *words({"bytes": held})]
    raise Cannot(f"{what} as an argument")


def listed(values):
    return [word for one in values for word in words(one)]


def element(values):
    return TEXT if values and all(isinstance(one, str) for one in values) else VARIANT


def read(one):
    """What the program has told, from the inside out."""
    if "double" in one:
        return struct.unpack("<d", struct.pack("<q", one["double"]))[0]
    if "date" in one:
        return notation({"date": read({"double": one["date"]})})
    if "bytes" in one:
        return dict(one, bytes=base64.b64encode(bytes(one["bytes"])).decode())
    if one.get("picture"):
        return {"picture": one["picture"]["bytes"]}
    return one


class Pascal(Rpc):
    def message(self, *words):
        return " ".join(map(str, words))

    def answer(self, line, *_):
        answer = json.loads(line, object_hook=read)
        if "cannot" in answer:
            raise Cannot(answer["cannot"])
        if "failed" in answer:
            raise Failed(answer["failed"])
        return answer

    def made(self, *request):
        answer = self.request(*request)
        if "error" in answer:
            raise Failed(f"error {number(answer)}")
        return answer["result"]

    def created(self, class_name):
        if class_name in ("Collection", "Dictionary"):
            return self.made("hold", *words({class_name.lower(): []}))
        return self.made("class", class_name)

    def foreign(self, properties):
        form = [word for name, value in properties.items() for word in [name, *words(value)]]
        return self.made("hold", "Form", len(properties), *form)

    def ask(self, step, given, named):
        way, owner, member = split(step)
        target = {"result": self.kept[owner]} if owner in self.kept else self.request("class", owner)
        if "error" in target:
            return Answer(error=number(target))
        parameters = self.member(step).get("parameters", [])
        types = {one["name"].lower(): one for one in parameters}
        order = list(enumerate(given)) + list(named.items())
        call = ["call", target["result"]["object"], WAYS.index(way), member, len(order), len(named), *reversed(named)]
        for name, value in reversed(order):
            one = types.get(name) or dict(enumerate(parameters)).get(name, {"type": "", "byReference": False})
            fits = kind(value) == one["type"] or one["type"] in OBJECTS and kind(value) in OBJECTS
            how = "Variable" if fits else "Variant"
            call += [how if one["byReference"] and value != MISSING else "Value"]
            call += words({"bytes": ""} if one["type"] == "Byte()" and value in EMPTY else value)
        answer = self.request(*call)
        if "error" in answer:
            if named and answer["error"] == UNKNOWN_NAME:
                raise Cannot("a name that no argument has, which is told as a member that is not there")
            return Answer(error=number(answer))
        finals = dict(zip(dict(order), answer["result"]["args"]))
        names = [one["name"].lower() for one in parameters]
        return Answer(answer["result"]["result"],
                      [finals.get(number, finals.get(name)) for number, name in enumerate(names)])

    def compare(self, step, given, named, answer):
        super().compare(step, given, named, answer)
        if "as" in step and kind(answer.result) in OBJECTS - {"Object"}:
            self.kept[step["as"]] = self.made("keep")


def main():
    options = arguments(__doc__)
    command = [*options.launcher.split(), os.path.abspath(options.program)]
    door = Pascal(command, dict.fromkeys(["", "display"], dict(os.environ, **ENVIRONMENT)))
    failures = speak(door, "pascal", options, "windows")
    print(*failures, sep="\n", end="\n" if failures else "")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
