"""The contract table: its rows, and when an answer is what a row wants. README.md tells the form."""
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
    """Every row of the files, with a name to tell it by."""
    for path in [pathlib.Path(name) for name in names] or sorted(HERE.glob("*.json")):
        for number, row in enumerate(json.loads(path.read_text(encoding="utf-8")), 1):
            row["name"] = f"{path.name} row {number}"
            yield row


def steps(row):
    return row["steps"] if "steps" in row else [row]


def split(step):
    """How a member is reached, its owner and its name."""
    way = next(word for word in ("call", "get", "let") if word in step)
    owner, member = step[way].split(".", 1)
    return way, owner, member


class Catalogue:
    def __init__(self):
        known = json.loads((HERE / "../../docs/catalogue.json").read_text(encoding="utf-8"))
        self.classes = {one["name"] for one in known["classes"]}
        self.members = {(one["name"].lower(), member["name"].lower(), member["kind"] == "let"): member
                        for one in known["classes"] for member in one["members"]}

    def member(self, class_name, name, kind):
        """What is known of a member; of one that is not there nothing."""
        return self.members.get((class_name.lower(), name.lower(), kind == "let"), {})


class Place:
    """What is a row's own: a folder, and a key of the registry. Both are gone at the end."""

    count = 0

    def __init__(self, windows):
        Place.count += 1
        self.folder = tempfile.mkdtemp(prefix="quorkit-row-")
        self.key = f"HKCU\\Software\\quorkit-row-{os.getpid()}-{Place.count}"
        self.windows = windows

    def close(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def filled(self, value):
        """The value with {folder} and {key} replaced in its texts."""
        if isinstance(value, str):
            if "{folder}" in value:
                if self.windows:
                    value = value.replace("{folder}", "Z:" + self.folder).replace("/", "\\")
                value = value.replace("{folder}", self.folder)
            return value.replace("{key}", self.key)
        if isinstance(value, list):
            return [self.filled(one) for one in value]
        if isinstance(value, dict):
            return {name: self.filled(one) for name, one in value.items()}
        return value

    def file(self, step):
        """Writes a file or reads one; what is wrong with it, or nothing."""
        path = pathlib.Path(self.folder, step["file"])
        if "holds" in step:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content(step["holds"]))
            return None
        found = path.read_bytes() if path.exists() else None
        wanted = step["gives"]
        if isinstance(wanted, dict) and "like" in wanted:
            text = (found or b"").decode(errors="replace")
            return None if found is not None and re.fullmatch(wanted["like"], text) else found
        return None if found == content(wanted) else f"{step['file']}: {found}"


def content(text):
    if isinstance(text, dict):
        return base64.b64decode(text["bytes"])
    return None if text is None else text.encode()


KINDS = {list: "Array", str: "String", bool: "Boolean", int: "Long", float: "Double", type(None): "Empty"}
NOTATIONS = {"integer": "Integer", "date": "Date", "array": "Array", "bytes": "Bytes", "table": "Table",
             "collection": "Collection", "dictionary": "Dictionary", "picture": "Picture",
             "object": "Object", "nothing": "Nothing", "null": "Null", "missing": "Missing",
             "error": "Error"}


def kind(value):
    if isinstance(value, dict):
        return next((NOTATIONS[name] for name in value if name in NOTATIONS), None)
    return KINDS[type(value)]


def whole(value):
    """The notation with what may be left out."""
    if isinstance(value, list):
        value = {"array": value}
    if isinstance(value, dict):
        value = {name: one for name, one in value.items() if name != "of"}
        if "array" in value or "bytes" in value:
            value.setdefault("lower", 0)
        if "table" in value:
            value.setdefault("lower", [0, 0])
    return value


def same(wanted, found):
    """Whether a value is what a row wants; 5 is not 5.0, and True is not 1."""
    if isinstance(wanted, dict) and set(wanted) == {"any"}:
        return kind(found) == wanted["any"]
    if isinstance(wanted, dict) and set(wanted) == {"like"}:
        return isinstance(found, str) and re.fullmatch(wanted["like"], found) is not None
    if isinstance(found, list) and isinstance(wanted, list):
        return len(wanted) == len(found) and all(map(same, wanted, found))
    wanted = whole(wanted)
    if isinstance(found, dict) and isinstance(wanted, dict):
        return set(wanted) == set(found) and all(same(wanted[name], found[name]) for name in wanted)
    return type(wanted) is type(found) and wanted == found
