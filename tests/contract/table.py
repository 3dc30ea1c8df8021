"""The contract table: its rows, what is known of members, and when a value is what a row wants."""
import base64
import json
import os
import pathlib
import re
import shutil
import tempfile

HERE = pathlib.Path(__file__).parent
# What every door has in its environment, so that rows can rely on it.
ENVIRONMENT = dict(line.split("=", 1) for line in (HERE / "environment").read_text("utf-8").splitlines())


def rows(names):
    """Every row of the files, under a name to tell it by."""
    for path in [pathlib.Path(name) for name in names] or sorted(HERE.glob("*.json")):
        for number, row in enumerate(json.loads(path.read_text("utf-8")), 1):
            yield f"{path.name} row {number}", row


def steps(row):
    return row.get("steps", [row])


def split(step):
    """How a member is reached, its owner and its name."""
    way = next(word for word in ("call", "get", "let") if word in step)
    owner, member = step[way].split(".", 1)
    return way, owner, member


class Catalogue:
    def __init__(self):
        known = json.loads((HERE / "../../docs/catalogue.json").read_text("utf-8"))
        self.classes = {one["name"] for one in known["classes"]}
        self.members = {(one["name"].lower(), member["name"].lower(), member["kind"] == "let"): member
                        for one in known["classes"] for member in one["members"]}

    def member(self, class_name, name, way):
        """What is known of a member; of one that is not there nothing."""
        return self.members.get((class_name.lower(), name.lower(), way == "let"), {})


class Place:
    """What is a row's own: a folder, which is gone at the end, and a key of the registry."""

    def __init__(self, windows):
        self.folder = tempfile.mkdtemp(prefix="quorkit-row-")
        self.key = "HKCU\\Software\\" + os.path.basename(self.folder)
        self.windows = windows

    def close(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def filled(self, value):
        """The value with {folder} and {key} replaced in its texts."""
        if isinstance(value, str):
            if "{folder}" in value and self.windows:
                value = value.replace("{folder}", "Z:" + self.folder).replace("/", "\\")
            return value.replace("{folder}", self.folder).replace("{key}", self.key)
        return each(self.filled, value)

    def file(self, step):
        """Writes a file; or reads one, and whether it holds what is wanted."""
        path = pathlib.Path(self.folder, step["file"])
        if "holds" in step:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content(step["holds"]).encode(errors="surrogateescape"))
            return True
        found = path.read_bytes().decode(errors="surrogateescape") if path.exists() else None
        return same(content(step["gives"]), found)


def content(text):
    """What a file holds, as a text."""
    if isinstance(text, dict) and "bytes" in text:
        return base64.b64decode(text["bytes"]).decode(errors="surrogateescape")
    return text


def each(change, value):
    """A list or an object with all its values changed; anything else as it is."""
    if isinstance(value, list):
        return [change(one) for one in value]
    return {name: change(one) for name, one in value.items()} if isinstance(value, dict) else value


KINDS = {list: "Array", str: "String", bool: "Boolean", int: "Long", float: "Double", type(None): "Empty"}


def kind(value):
    """The kind of a value in the notation: Date of {"date": ...}."""
    names = [name for name in value if name != "lower"] if isinstance(value, dict) else []
    return names[0].capitalize() if names else KINDS.get(type(value))


def whole(value):
    """The notation with what may be left out, without what no door outside can tell."""
    value = dict(value) if isinstance(value, dict) else {"array": value}
    value.pop("of", None)
    if "array" in value or "bytes" in value:
        value.setdefault("lower", 0)
    if "table" in value:
        value.setdefault("lower", [0, 0])
    return value


def same(wanted, found):
    """Whether a value is what a row wants; 5 is not 5.0, and True is not 1."""
    if isinstance(wanted, dict) and "any" in wanted:
        return kind(found) == wanted["any"]
    if isinstance(wanted, dict) and "like" in wanted:
        return isinstance(found, str) and re.fullmatch(wanted["like"], found) is not None
    if isinstance(found, list) and isinstance(wanted, list):
        return len(wanted) == len(found) and all(map(same, wanted, found))
    if isinstance(found, dict) and isinstance(wanted, (dict, list)):
        wanted = whole(wanted)
        wanted.update({name: None for name in wanted if found.get(name, 0) is None})  # what a door does not see
        return set(wanted) == set(found) and all(same(wanted[name], found[name]) for name in wanted)
    return type(wanted) is type(found) and wanted == found
