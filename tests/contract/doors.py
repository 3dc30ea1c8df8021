#!/usr/bin/env python3
"""doors.py PROGRAM [--door rpc|cli] [--launcher COMMAND] [--every N] [FILE...]
doors.py LIBRARY --door c --launcher SPEAKER [--every N] [FILE...]

Says the contract table to the program `quorkit` as a client does: in one session of `quorkit rpc`, and by
one `quorkit call` for each call; or to the C interface of the shared library, through a program that answers
as `quorkit rpc` does. --launcher is what starts the program, such as wine; where that takes long, every Nth
row will do. Ends with a line for each door, and with 1 when a row got another answer than it wants, or when
a member has no row.
"""
import argparse
import collections
import json
import os
import shutil
import subprocess
import sys
import tempfile
import threading

from table import ENVIRONMENT, Catalogue, Place, each, kind, rows, same, split, steps

SECONDS = 30  # that a call may take
CATALOGUE = Catalogue()
MISSING = {"missing": True}


class Cannot(Exception):
    """The door has no words for a row; the text says why."""


class Failed(Exception):
    """The answer is not what the row wants."""


Answer = collections.namedtuple("Answer", "result finals error argument", defaults=(None, [], None, None))


class Door:
    """What the doors have in common: a row with what it has named."""

    def __init__(self, command, environments):
        self.command, self.environments, self.display = command, environments, ""

    def begin(self, row, place):
        self.display, self.place = row.get("needs", ""), place
        self.classes, self.kept = {}, {}  # of the objects that the row has named, and their values

    def member(self, step):
        way, owner, member = split(step)
        return CATALOGUE.member(self.classes.get(owner, owner), member, way)

    def value(self, value):
        """An argument, with what the row has named put in."""
        if isinstance(value, dict) and "named" in value:
            return self.kept[value["named"]]
        if isinstance(value, dict) and "properties" in value:
            return self.foreign(each(self.value, value["properties"]))
        if isinstance(value, dict):
            value = {name: one for name, one in value.items() if name != "of"}
        return each(self.value, value)

    def take(self, step):
        if "file" in step:
            if not self.place.file(step):
                raise Failed("another content")
        elif "properties" in step:
            self.kept[step["as"]] = self.value(step)
        elif "new" in step:
            self.classes[step["as"]] = step["new"]
            self.kept[step["as"]] = self.created(step["new"])
            for name, to in step.get("with", {}).items():
                self.take({"let": f"{step['as']}.{name}", "to": to})
        else:
            given = [self.value(one) for one in step.get("args", [])]
            if "let" in step:
                given.append(self.value(step["to"]))
            named = {name.lower(): self.value(one) for name, one in step.get("named", {}).items()}
            answer = self.ask(step, given, named)
            if answer.error != step.get("error"):
                raise Failed(f"error {answer.error}, result {shown(answer.result)}")
            if answer.argument is not None:
                names = ["", *(one["name"] for one in self.member(step).get("parameters", []))]
                if names[answer.argument:][:1] != [step.get("argument", "")]:
                    raise Failed(f"argument {answer.argument}")
            if answer.error is None and "let" not in step:
                self.compare(step, given, named, answer)

    def compare(self, step, given, named, answer):
        member = self.member(step)
        if "gives" in step or "as" not in step:
            if not same(self.value(step.get("gives")), answer.result):
                raise Failed(shown(answer.result))
        if "as" in step:
            self.kept[step["as"]], self.classes[step["as"]] = answer.result, member.get("result", "")
        given = given + [MISSING] * len(answer.finals)
        for parameter, wanted, final in zip(member.get("parameters", []), given, answer.finals):
            wanted = named.get(parameter["name"].lower(), wanted)
            if parameter["name"] in step.get("changes", {}):
                wanted = self.value(step["changes"][parameter["name"]])
            elif not parameter["byReference"] or wanted == MISSING:
                continue
            if not self.stays(wanted, final, parameter["type"]):
                raise Failed(f"{parameter['name']} = {shown(final)}")

    def stays(self, wanted, final, _):
        return same(wanted, final)


class Rpc(Door):
    """A session for all rows, and one for those that need a display."""

    def __init__(self, *args):
        super().__init__(*args)
        self.sessions, self.kept = {}, {}

    def begin(self, row, place):
        self.forget()
        super().begin(row, place)

    def forget(self):
        """Lets go of the objects of the row before."""
        kept = [one["object"] for one in self.kept.values() if isinstance(one, dict) and "object" in one]
        for number in set(kept) if self.display in self.sessions else ():
            self.request("release", {"object": number})

    def close(self):
        """How the sessions ended, if not well."""
        for process in self.sessions.values():
            process.stdin.close()
        return [f"a session ended with {process.returncode}" for process in self.sessions.values()
                if process.wait(SECONDS)]

    def message(self, method, params):
        return json.dumps({"jsonrpc": "2.0", "id": 1, "method": method, "params": params})

    def answer(self, line, method, *_):
        answer = json.loads(line)
        if "error" in answer and (answer["error"]["code"] != -32000 or method != "invoke"):
            raise Failed(answer["error"]["message"])
        return answer

    def request(self, *words):
        if self.display not in self.sessions:
            self.sessions[self.display] = subprocess.Popen(
                self.command, env=self.environments[self.display], cwd=tempfile.gettempdir(),
                stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        process = self.sessions[self.display]
        limit = threading.Timer(SECONDS, process.kill)
        limit.start()
        process.stdin.write(self.message(*words).encode() + b"\n")
        process.stdin.flush()
        line = process.stdout.readline()
        limit.cancel()
        if not line:
            del self.sessions[self.display]
            raise Failed("no answer")
        return self.answer(line, *words)

    def created(self, class_name):
        return self.request("create", {"class": class_name})["result"]

    def foreign(self, properties):
        return self.request("create", {"properties": properties})["result"]

    def ask(self, step, given, named):
        way, owner, member = split(step)
        target = self.kept.get(owner, {"class": owner})
        if not {"class", "object"} & set(target):
            raise Cannot("a member of an object that this door copies")
        answer = self.request("invoke", dict(target, member=member, kind=way, args=given, named=named))
        if "error" in answer:
            data = answer["error"]["data"]
            return Answer(error=data["number"], argument=data.get("argument"))
        return Answer(answer["result"]["result"], answer["result"]["args"])


# What their objects do stays outside of them, so that a new one goes on where another has stopped.
KEEP_NOTHING = {"QuorInifile"}
TYPED_AS_JSON = {"Array", "Bytes", "Table", "Collection", "Dictionary", "Picture", "Nothing", "Integer", "Date"}
TAKE_JSON = {"Variant", "String()", "Byte()", "Variant()", "Object", "Collection", "Dictionary", "Picture"}


class Cli(Door):
    """One process a call. An object is its class and a list of what its properties were set to."""

    def close(self):
        return []

    def created(self, _):
        return []

    def foreign(self, _):
        raise Cannot("an object of the client's own")

    def value(self, value):
        if isinstance(value, dict) and isinstance(self.kept.get(value.get("named")), list):
            raise Cannot("an object as an argument")
        return super().value(value)

    def ask(self, step, given, named):
        way, owner, member = split(step)
        options = list(self.kept.get(owner, []) or [])
        if owner in self.kept and not isinstance(self.kept[owner], list):
            raise Cannot("an object that lives from call to call")
        parameters = self.member(step).get("parameters", [])
        types = {one["name"].lower(): one["type"] for one in parameters}
        if way == "let":
            if len(given) > 1:
                raise Cannot("a property with an index")
            options += ["--set", f"{member}={self.typed(given.pop(), types.get('newvalue', 'Variant'))}"]
            if owner in self.kept and "error" not in step:
                self.kept[owner] = options
                return Answer()
        names = [*types] + [""] * len(given)
        given, named = list(given), dict(named)
        while MISSING in given:  # what follows it goes by name
            last = given.pop()
            if last != MISSING:
                named[names[len(given)]] = last
        texts = [f"{self.classes.get(owner, owner)}.{member}"]
        texts += [self.typed(one, types.get(name, "Variant")) for name, one in zip(names, given)]
        for name, one in named.items():
            options += ["--arg", f"{name}={self.typed(one, types.get(name, 'Variant'))}"]
        if way == "call" and owner in self.kept and self.classes[owner] not in KEEP_NOTHING:
            self.kept[owner] = None
        return self.run(options, texts)

    def run(self, options, texts):
        if any(text.startswith("--") or text == "-e" for text in texts):
            texts = ["--"] + texts
        words = options + texts
        if any(hard(c) for word in words for c in word):
            words = ["-e"] + [escaped(word) for word in words]
        # Files, since what Wine leaves running would keep a pipe open.
        with tempfile.TemporaryFile() as printed, tempfile.TemporaryFile() as told:
            try:
                status = subprocess.run(
                    self.command + words, env=self.environments[self.display],
                    stdin=subprocess.DEVNULL, stdout=printed, stderr=told, timeout=SECONDS,
                    cwd=tempfile.gettempdir()).returncode
            except subprocess.TimeoutExpired:
                raise Failed("no answer") from None
            printed.seek(0)
            told.seek(0)
            printed, told = printed.read(), told.read().decode().split()
        if status == 0:
            answer = json.loads(printed)
            return Answer(answer["result"], answer["args"])
        if told[:2] != ["quorkit:", "error"]:
            raise Failed(f"status {status}: {' '.join(told)}")
        return Answer(error=int(told[2].rstrip(":")))

    def stays(self, wanted, final, wanted_type):
        """Where any value will do, what a person types is a text."""
        return same(wanted, final) or wanted_type == "Variant" and final == self.typed(wanted, "String")

    def typed(self, value, wanted):
        """What a person types for a value where a type is wanted."""
        if isinstance(value, str) and not (wanted in TAKE_JSON and value[:1] in ("{", "[")):
            return value
        if isinstance(value, (bool, int)) and wanted != "Date":
            return str(value)
        if isinstance(value, float) and (wanted == "Double" or "e" not in str(value) and wanted != "Date"):
            return str(value).removesuffix(".0")
        if kind(value) in TYPED_AS_JSON and wanted in TAKE_JSON:
            return json.dumps(value, ensure_ascii=False)
        if kind(value) == "Integer":
            return str(value["integer"])
        if kind(value) == "Date" and "." not in str(value["date"]):
            return value["date"].replace("T", " ")
        raise Cannot(f"{kind(value)} typed for {wanted}")


def hard(c):
    """Whether a character cannot be typed as it is."""
    return ord(c) < 32 or 0xD800 <= ord(c) < 0xE000


def escaped(word):
    return "".join("\\\\" if c == "\\" else f"\\u{ord(c):04x}" if hard(c) else c for c in word)


def shown(value):
    return json.dumps(value, ensure_ascii=True)


def say(door, name, row, system, place):
    if row.get("on", system) != system:
        raise Cannot("a row of the other system")
    if name in row.get("not", {}):
        raise Cannot(row["not"][name])
    door.begin(row, place)
    for step in map(place.filled, steps(row)):
        try:
            door.take(step)
        except Failed as failed:
            raise Failed(f"{shown(step)}\n    got {failed}") from None


def unsaid():
    """What no row calls, and what no row with a sentence does."""
    told = {}
    for _, row in rows([]):
        classes = {}
        for step in steps(row):
            if "new" in step:
                classes[step["as"]] = step["new"]
            if "file" in step or "properties" in step:
                continue
            lets = [{"let": f"{step['as']}.{name}"} for name in step.get("with", {})]
            for call in lets if "new" in step else [step]:
                way, owner, name = split(call)
                key = classes.get(owner, owner).lower(), name.lower(), way == "let"
                told[key] = told.get(key, False) or "tells" in row
                if "as" in call:
                    classes[call["as"]] = CATALOGUE.members.get(key, {}).get("result", "")
    return [f"no row calls {key}" for key in CATALOGUE.members if key not in told] + [
        f"no sentence tells of {key}" for key, tells in told.items() if not tells and not key[2]
        and key in CATALOGUE.members]


def arguments(usage, doors):
    parser = argparse.ArgumentParser(usage=usage)
    parser.add_argument("program")
    parser.add_argument("--door", choices=doors)
    parser.add_argument("--launcher", default="")
    parser.add_argument("--every", type=int, default=1)
    parser.add_argument("files", nargs="*")
    return parser.parse_intermixed_args()


def speak(door, name, options, system):
    """Says all rows to a door, and tells how many; what failed."""
    said, reasons, failures = 0, collections.Counter(), []
    for row_name, row in list(rows(options.files))[::options.every]:
        place = Place(system == "windows")
        try:
            say(door, name, row, system, place)
            said += 1
        except Cannot as cannot:
            reasons[str(cannot)] += 1
        except Failed as failed:
            failures.append(f"{name}: {row_name} wants {failed}")
        finally:
            place.close()
    failures += door.close()
    cannot = "".join(f"; {count} cannot: {why}" for why, count in reasons.most_common())
    print(f"{name}: {said} rows said{cannot}")
    return failures


def main():
    options = arguments(__doc__, ["rpc", "cli", "c"])
    program = os.path.abspath(options.program)
    system = "windows" if program.endswith(".exe") else "linux"
    home = tempfile.mkdtemp(prefix="quorkit-home-")
    plain = {name: value for name, value in os.environ.items()
             if name not in ("DISPLAY", "WAYLAND_DISPLAY") and not name.startswith("XDG_")}
    plain.update(ENVIRONMENT, HOME=home, TMPDIR=home, QUORKIT_LIBEXEC=os.path.dirname(program))
    environments = {"": plain, "display": plain}
    if system == "linux":
        server = subprocess.Popen(["Xvfb", "-displayfd", "1", "-noreset", "-nolisten", "tcp"],
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        environments["display"] = dict(plain, DISPLAY=":" + server.stdout.readline().decode().strip())
    # While one program runs, Wine does not start anew for each of the others.
    running = [] if system == "linux" else [subprocess.Popen(
        options.launcher.split() + [program, "rpc"], env=plain, stdin=subprocess.PIPE,
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)]
    failures = [] if options.files else unsaid()
    for name in [options.door] if options.door else ["rpc", "cli"]:
        make, words = {"rpc": (Rpc, ["rpc"]), "cli": (Cli, ["call", "--json"]), "c": (Rpc, [])}[name]
        door = make(options.launcher.split() + [program] + words, environments)
        failures += speak(door, name, options, system)
    print(*failures, sep="\n", end="\n" if failures else "")
    for process in running:
        process.stdin.close()
        process.wait()
    if system == "linux":
        server.terminate()
        server.wait()
    shutil.rmtree(home, ignore_errors=True)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
