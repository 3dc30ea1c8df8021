#!/usr/bin/env python3
"""doors.py PROGRAM [--door rpc|cli] [--launcher COMMAND...] [FILE...]

Says the contract table to the program `quorkit` as a client does: by one session of `quorkit rpc`, and
by one `quorkit call` for each call. Ends with a line for each door, and with 1 when a row got another
answer than it wants. --launcher is what the program is started with, such as wine.
"""
import argparse
import collections
import json
import os
import queue
import shutil
import subprocess
import sys
import tempfile
import threading

from table import ENVIRONMENT, Catalogue, Place, kind, rows, same, split, steps

SECONDS = 30  # that a call may take
CATALOGUE = Catalogue()


class Cannot(Exception):
    """The door has no words for a row; the text says why."""


class Failed(Exception):
    """The answer is not what the row wants."""


class Answer:
    """What came of a call: a result, the final values of the parameters, or the number of an error."""

    def __init__(self, result=None, finals=None, error=None):
        self.result, self.finals, self.error = result, finals, error


class Door:
    def __init__(self, command, environments, windows):
        self.command, self.environments, self.windows = command, environments, windows

    def close(self):
        pass

    def begin(self, row, place):
        self.display = row.get("needs", "")
        self.place = place
        self.classes = {}  # of the objects that the row has named
        self.kept = {}  # their values

    def member(self, step):
        way, owner, member = split(step)
        return CATALOGUE.member(self.classes.get(owner, owner), member, way)

    def parameters(self, step):
        return self.member(step).get("parameters", [])

    def value(self, value):
        """An argument, with what the row has named put in."""
        if isinstance(value, dict) and set(value) == {"named"}:
            return self.kept[value["named"]]
        if isinstance(value, dict) and set(value) == {"properties"}:
            return self.foreign(value["properties"])
        if isinstance(value, list):
            return [self.value(one) for one in value]
        if isinstance(value, dict):
            return {name: self.value(one) for name, one in value.items() if name != "of"}
        return value

    def arguments(self, step):
        """The values in order and those by name; the new one of a let is the last."""
        given = [self.value(one) for one in step.get("args", [])]
        if "let" in step:
            given.append(self.value(step["to"]))
        return given, {name: self.value(one) for name, one in step.get("named", {}).items()}

    def take(self, step):
        if "file" in step:
            wrong = self.place.file(step)
            if wrong is not None:
                raise Failed(wrong)
        elif "properties" in step:
            self.kept[step["as"]] = self.value({"properties": step["properties"]})
        elif "new" in step:
            self.create(step["new"], step["as"])
            for name, to in step.get("with", {}).items():
                self.take({"let": f"{step['as']}.{name}", "to": to})
        else:
            answer = self.ask(step)
            if answer is not None:
                self.compare(step, answer)

    def compare(self, step, answer):
        if answer.error != step.get("error"):
            raise Failed(f"error {answer.error}, result {shown(answer.result)}")
        if answer.error is not None:
            return
        if "as" in step:
            self.kept[step["as"]] = answer.result
            self.classes[step["as"]] = self.member(step).get("result", "")
        wanted = self.value(step.get("gives"))
        if not (same(wanted, answer.result) or "as" in step and "gives" not in step):
            raise Failed(shown(answer.result))
        if "let" in step:
            return
        given, named = self.arguments(step)
        given += [{"missing": True}] * (len(answer.finals) - len(given))
        for parameter, handed, final in zip(self.parameters(step), given, answer.finals):
            name = parameter["name"]
            handed = named.get(name, handed)
            if name in step.get("changes", {}):
                handed = self.value(step["changes"][name])
            elif not parameter["byReference"] or handed == {"missing": True}:
                continue
            if not self.stays(handed, final, parameter):
                raise Failed(f"{name} = {shown(final)}")

    def stays(self, wanted, final, parameter):
        return same(wanted, final)


class Rpc(Door):
    """One session for all rows, and one for those that need a display."""

    def __init__(self, *args):
        super().__init__(*args)
        self.sessions = {}

    def close(self):
        for name in list(self.sessions):
            self.end(name)

    def end(self, name):
        process, _ = self.sessions.pop(name)
        process.stdin.close()
        try:
            process.wait(SECONDS)
        except subprocess.TimeoutExpired:
            process.kill()

    def session(self):
        if self.display not in self.sessions:
            process = subprocess.Popen(self.command + ["rpc"], env=self.environments[self.display],
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       stderr=subprocess.DEVNULL, cwd=tempfile.gettempdir())
            lines = queue.Queue()

            def read():
                for line in process.stdout:
                    lines.put(line)
                lines.put(b"")

            threading.Thread(target=read, daemon=True).start()
            self.sessions[self.display] = process, lines
        return self.sessions[self.display]

    def request(self, method, params):
        process, lines = self.session()
        message = json.dumps({"jsonrpc": "2.0", "id": 1, "method": method, "params": params})
        process.stdin.write(message.encode() + b"\n")
        process.stdin.flush()
        try:
            line = lines.get(timeout=SECONDS)
        except queue.Empty:
            line = b""
        if not line:
            process.kill()
            self.end(self.display)
            raise Failed("no answer")
        answer = json.loads(line)
        failure = answer.get("error")
        if failure and (failure["code"] != -32000 or method != "invoke"):
            raise Failed(failure["message"])
        return answer

    def create(self, class_name, name):
        self.kept[name] = self.request("create", {"class": class_name})["result"]
        self.classes[name] = class_name

    def foreign(self, properties):
        values = {name: self.value(one) for name, one in properties.items()}
        return self.request("create", {"properties": values})["result"]

    def ask(self, step):
        way, owner, member = split(step)
        given, named = self.arguments(step)
        params = {"member": member, "kind": way, "args": given, "named": named}
        params.update(self.kept[owner] if owner in self.kept else {"class": owner})
        if owner in self.kept and "object" not in params:
            raise Cannot("a member of an object that this door copies")
        answer = self.request("invoke", params)
        if "error" in answer:
            return Answer(error=answer["error"]["data"]["number"])
        return Answer(answer["result"]["result"], answer["result"]["args"])


# What their objects do stays outside of them, so that a new one goes on where another has stopped.
KEEP_NOTHING = {"QuorInifile"}
STRUCTURES = {"array", "bytes", "table", "collection", "dictionary", "picture", "nothing", "integer", "date"}
ANYTHING = {"Variant", "String()", "Byte()", "Variant()", "Object", "Collection", "Dictionary", "Picture"}


class Cli(Door):
    """One process a call; an object is no more than its class and what its properties were set to."""

    def create(self, class_name, name):
        self.classes[name] = class_name
        self.kept[name] = []

    def foreign(self, properties):
        raise Cannot("an object of the client's own")

    def value(self, value):
        if isinstance(value, dict) and set(value) == {"named"} and isinstance(self.kept[value["named"]], list):
            raise Cannot("an object as an argument")
        return super().value(value)

    def ask(self, step):
        way, owner, member = split(step)
        sets = self.kept.get(owner, [])
        given, named = self.arguments(step)
        parameters = self.parameters(step)
        types = {one["name"].lower(): one["type"] for one in parameters}
        if not isinstance(sets, list):
            raise Cannot("an object that lives from call to call")
        if way == "let":
            if len(given) > 1:
                raise Cannot("a property with an index")
            sets = sets + ["--set", f"{member}={self.typed(given[0], types.get('newvalue', 'Variant'))}"]
            if owner in self.kept:
                self.kept[owner] = sets
                if "error" not in step:
                    return None
            given = []
        texts = [f"{self.classes.get(owner, owner)}.{member}"]
        options = list(sets)
        names = [one["name"] for one in parameters] + [""] * len(given)
        while given and {"missing": True} in given:  # what follows it goes by name
            last = given.pop()
            if last != {"missing": True}:
                named = {names[len(given)]: last, **named}
        for name, one in zip(names, given):
            texts.append(self.typed(one, types.get(name.lower(), "Variant")))
        for name, one in named.items():
            options += ["--arg", f"{name}={self.typed(one, types.get(name.lower(), 'Variant'))}"]
        answer = self.run(options, texts)
        if way == "call" and owner in self.kept and self.classes[owner] not in KEEP_NOTHING:
            self.kept[owner] = None
        return Answer(None, [], answer.error) if way == "let" else answer

    def run(self, options, texts):
        if any(text.startswith("--") or text == "-e" for text in texts):
            texts = ["--"] + texts
        command = ["call", "--json"] + options + texts
        if any(hard(c) for word in command for c in word):
            command = ["call", "--json", "-e"] + [escaped(word) for word in options + texts]
        try:
            done = subprocess.run(self.command + command, env=self.environments[self.display],
                                  stdin=subprocess.DEVNULL, capture_output=True, timeout=SECONDS,
                                  cwd=tempfile.gettempdir())
        except subprocess.TimeoutExpired:
            raise Failed("no answer") from None
        if done.returncode == 0:
            answer = json.loads(done.stdout)
            return Answer(answer["result"], answer["args"])
        words = done.stderr.decode().split()
        if words[:2] != ["quorkit:", "error"]:
            raise Failed(f"status {done.returncode}: {done.stderr.decode()}")
        return Answer(error=int(words[2].rstrip(":")))

    def stays(self, wanted, final, parameter):
        """What a person types for any value is a text."""
        return same(wanted, final) or parameter["type"] == "Variant" and final == self.typed(wanted, "String")

    def typed(self, value, wanted):
        """What a person types for a value where a type is wanted."""
        if isinstance(value, str):
            if wanted in ANYTHING and value[:1] in ("{", "["):
                raise Cannot("a text that reads as a structure")
            return value
        if isinstance(value, (bool, int)) and wanted != "Date":
            return str(value)
        if isinstance(value, float) and wanted == "Double":
            return str(value)
        if isinstance(value, float) and wanted != "Date" and "e" not in str(value):
            return f"{value:g}"
        if isinstance(value, list) or isinstance(value, dict) and STRUCTURES & set(value):
            if wanted in ANYTHING:
                return json.dumps(value, ensure_ascii=False)
            if "integer" in value:
                return str(value["integer"])
            if "date" in value and isinstance(value["date"], str) and "." not in value["date"]:
                return value["date"].replace("T", " ")
        raise Cannot(f"{kind(value)} typed for {wanted}")


def hard(c):
    """Whether a character cannot be typed as it is."""
    return ord(c) < 32 or 0xD800 <= ord(c) < 0xE000


def escaped(word):
    return "".join("\\\\" if c == "\\" else f"\\u{ord(c):04x}" if hard(c) else c for c in word)


def shown(value):
    return json.dumps(value, ensure_ascii=True)


class XServer:
    """Xvfb for the rows that need a display."""

    def __init__(self):
        out, into = os.pipe()
        self.process = subprocess.Popen(["Xvfb", "-displayfd", str(into), "-screen", "0", "1280x1024x24",
                                         "-noreset", "-nolisten", "tcp"], pass_fds=[into],
                                        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        os.close(into)
        with os.fdopen(out) as answer:
            self.display = ":" + answer.readline().strip()

    def close(self):
        self.process.terminate()
        self.process.wait()


def say(door, name, row, windows):
    """Nothing when the row was said and is as wanted."""
    if row.get("on", "windows" if windows else "linux") != ("windows" if windows else "linux"):
        raise Cannot("a row of the other system")
    if name in row.get("not", {}):
        raise Cannot(row["not"][name])
    place = Place(windows)
    try:
        door.begin(row, place)
        for step in steps(row):
            try:
                door.take(place.filled(step))
            except Failed as failed:
                wanted = {one: what for one, what in step.items() if one not in ("tells", "name")}
                raise Failed(f"{shown(wanted)}\n    got {failed}") from None
    finally:
        place.close()


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("program")
    parser.add_argument("--door", choices=["rpc", "cli"])
    parser.add_argument("--launcher", default="")
    parser.add_argument("files", nargs="*")
    options = parser.parse_intermixed_args()
    program = os.path.abspath(options.program)
    windows = program.endswith(".exe")
    home = tempfile.mkdtemp(prefix="quorkit-home-")
    plain = {name: value for name, value in os.environ.items()
             if name not in ("DISPLAY", "WAYLAND_DISPLAY") and not name.startswith("XDG_")}
    plain.update(ENVIRONMENT, HOME=home, QUORKIT_LIBEXEC=os.path.dirname(program))
    server = None if windows else XServer()
    environments = {"": plain, "display": plain if windows else dict(plain, DISPLAY=server.display)}
    failures = 0
    for name, make in {"rpc": Rpc, "cli": Cli}.items():
        if options.door not in (None, name):
            continue
        door = make(options.launcher.split() + [program], environments, windows)
        said, reasons = 0, collections.Counter()
        for row in rows(options.files):
            try:
                say(door, name, row, windows)
                said += 1
            except Cannot as cannot:
                reasons[str(cannot)] += 1
            except Failed as failed:
                failures += 1
                print(f"{name}: {row['name']} wants {failed}")
        door.close()
        cannot = "".join(f"; {count} cannot: {why}" for why, count in reasons.most_common())
        print(f"{name}: {said} rows said{cannot}")
    if server:
        server.close()
    shutil.rmtree(home, ignore_errors=True)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
