#!/usr/bin/env python3
"""direct.py TABLE.json OUTPUT.cpp: the rows of a table as plain calls of the C++ classes.

A row that the compiler would refuse is left out: a text where a number is wanted, too many arguments.
"""
import collections
import json
import pathlib
import sys

from table import Catalogue, kind, split, steps

CATALOGUE = Catalogue()
READERS = {"String": "text", "Date": "date", "String()": "strings", "Byte()": "bytes",
           "Variant()": "variants", "Object": "object", "Collection": "collection",
           "Dictionary": "dictionary", "Picture": "picture", "Variant": "any"}
# The kinds of value, beside its own, that the compiler takes for a type.
KINDS = {"String()": {"Array"}, "Variant()": {"Array"}, "Byte()": {"Bytes"}, "Double": {"Long"}, "Integer": {"Long"},
         "Object": {"Nothing", "properties"}, "Collection": {"Nothing"}, "Dictionary": {"Nothing"}, "Picture": {"Nothing"}}
TYPES = {"String()": "Array<String>", "Byte()": "Array<Byte>", "Variant()": "Array<Variant>",
         "Object": "ObjectRef", "Collection": "CollectionRef", "Dictionary": "DictionaryRef", "Picture": "PictureRef"}


class Cannot(Exception):
    """The compiler refuses a row; the text says why."""


def literal(text):
    """The text, where it stands between two quotes; what it cannot hold ends one literal and begins another."""
    units = []
    for c in text:
        if c in '"\\':
            units.append("\\" + c)
        elif ord(c) < 32 or ord(c) == 127 or 0xD800 <= ord(c) < 0xE000:
            units.append(f'\\x{ord(c):X}" u"')
        else:
            units.append(c)
    quoted = 'u"' + "".join(units) + '"'
    return f"String({quoted}, {len(text.encode('utf-16-le', 'surrogatepass')) // 2})" if "\0" in text else quoted


class Row:
    def __init__(self, row):
        self.classes, self.lines, self.variables = {}, [], []
        for number, step in enumerate(steps(row)):
            if "new" in step:
                self.declare(step["as"], step["new"])
                lets = [self.let(step["as"], name, to, f"/with/{name}") for name, to in step.get("with", {}).items()]
                self.say(number, lets)
            elif "file" not in step and "properties" not in step:
                self.say(number, self.call(step))

    def say(self, number, lines):
        self.lines += [f"    row.begin({number});", "    try {", *lines,
                       "    } catch (const AutomationError& error) {", "        row.raised(error);", "    }"]

    def declare(self, name, class_name):
        if class_name not in CATALOGUE.classes:
            raise Cannot("an object of the runtime")
        self.classes[name] = class_name
        self.variables.append(f"    {class_name} {name};")

    def owner(self, name):
        if name in self.classes:
            return name
        if name not in CATALOGUE.classes:
            raise Cannot("a member of an object that no class has")
        return name + "()"

    def let(self, owner, name, to, place, target=None):
        member = self.member(owner, name, "let")
        return f"        {target or owner}.set{member['name']}({self.value(to, member['parameters'][0]['type'], place)});"

    def member(self, owner, name, way):
        member = CATALOGUE.member(self.classes.get(owner, owner), name, way)
        if not member:
            raise Cannot("no such member")
        return member

    def call(self, step):
        way, owner, name = split(step)
        target = self.owner(owner)
        if way == "let":
            return [self.let(owner, name, step["to"], "/to", target), "        row.gave({});"]
        member = self.member(owner, name, way)
        before, arguments, after = [], self.arguments(step, member["parameters"]), []
        for number, (parameter, text) in enumerate(zip(member["parameters"], arguments)):
            if parameter["changed"]:
                wanted = TYPES.get(parameter["type"], parameter["type"])
                before.append(f"        {wanted} p{number} = {text};")
                after.append(f"        row.changed(\"{parameter['name']}\", p{number});")
                arguments[number] = f"p{number}"
        called = f"{target}.{member['name']}({', '.join(arguments)})"
        if member["result"] in CATALOGUE.classes:
            if "as" not in step:
                raise Cannot("an object of C++ as a value")
            self.declare(step["as"], member["result"])
            called = f"{step['as']} = {called}"
        elif member["result"]:
            if after:
                return [*before, f"        const Variant result = {called};", *after, "        row.gave(result);"]
            return [f"        row.gave({called});"]
        return [*before, f"        {called};", *after, "        row.gave({});"]

    def arguments(self, step, parameters):
        """One text for each parameter, up to the last that is given."""
        given = [(one, f"/args/{number}") for number, one in enumerate(step.get("args", []))]
        if len(given) > len(parameters):
            raise Cannot("too many arguments")
        missing = {"missing": True}, ""
        given += [missing] * (len(parameters) - len(given))
        names = [one["name"].lower() for one in parameters]
        for name, one in step.get("named", {}).items():
            if name.lower() not in names or given[names.index(name.lower())] != missing:
                raise Cannot("no such name")
            given[names.index(name.lower())] = one, f"/named/{name}"
        while given and given[-1] == missing and "default" in parameters[len(given) - 1]:
            given.pop()
        return [self.argument(one, parameter, place) for (one, place), parameter in zip(given, parameters)]

    def argument(self, value, parameter, place):
        if value != {"missing": True}:
            return self.value(value, parameter["type"], place)
        if "default" not in parameter:
            raise Cannot("an argument that is left out")
        return "{}"

    def value(self, value, wanted, place):
        """The value as C++, of the type that is wanted."""
        if isinstance(value, dict) and "named" in value:
            if value["named"] in self.classes:
                raise Cannot("an object of C++ as a value")
            return f"row.{READERS[wanted]}(\"{place}\")" if wanted in READERS else f"row.any(\"{place}\").get<{wanted}>()"
        found = "properties" if isinstance(value, dict) and "properties" in value else kind(value)
        if wanted not in (found, "Variant") and found not in KINDS.get(wanted, ()):
            if wanted in READERS or wanted in ("Boolean", "Long", "Integer", "Double") or found != "Long":
                raise Cannot(f"{found} for {wanted}")
            return f"static_cast<{wanted}>({value})"
        if found == "String" and "{" not in value:
            return literal(value)
        if found == "Boolean":
            return "true" if value else "false"
        if found in ("Long", "Integer"):
            number = value["integer"] if found == "Integer" else value
            if wanted == "Integer" and not -32768 <= number < 32768:
                raise Cannot("a number out of range")
            number = "-2147483647 - 1" if number == -2147483648 else str(number)
            return f"{wanted if found == 'Long' and wanted != 'Variant' else found}{{{number}}}"
        if found == "Double":
            return repr(value)
        return f"row.{READERS[wanted]}(\"{place}\")"


def main():
    table, output = map(pathlib.Path, sys.argv[1:])
    texts, numbers, reasons = [], [], collections.Counter()
    for number, row in enumerate(json.loads(table.read_text(encoding="utf-8")), 1):
        try:
            if "direct" in row.get("not", {}):
                raise Cannot(row["not"]["direct"])
            made = Row(row)
        except Cannot as cannot:
            reasons[str(cannot)] += 1
            continue
        numbers.append(f"{{{number}, row{number}}}")
        texts += [f"void row{number}(DirectRow& row) {{", *made.variables, *made.lines, "}"]
    used = sorted(name for name in CATALOGUE.classes if name in "\n".join(texts))
    cannot = "".join(f"; {count} cannot: {why}" for why, count in reasons.most_common())
    output.write_text("\n".join(
        [f"// Generated from {table.name}.", "#include <gtest/gtest.h>", "",
         *[f"#include <quorkit/{name}.h>" for name in used], "", '#include "contract/direct.h"', "",
         f"namespace quorkit::test::direct_{table.stem} {{", "namespace {", "", *texts, "",
         f"TEST(ContractDirectly, {table.stem}) {{",
         f"    sayDirectly(\"{table.name}\", {{{', '.join(numbers)}}},", f"                {json.dumps(cannot)});",
         "}", "", "}  // namespace", "}", ""]), encoding="utf-8")


if __name__ == "__main__":
    main()
