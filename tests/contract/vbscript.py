#!/usr/bin/env python3
"""vbscript.py SERVER --launcher COMMAND [--system FOLDER] [--every N] [--keep FOLDER] [FILE...]

Says the contract table to the automation server as a macro does: registers the server, makes one script of
all rows, runs it with the system's `cscript` and compares what it has told. --launcher is what starts
programs for Windows; --system has those of the server's bitness. --keep keeps script and answers.
Ends as doors.py does.
"""
import argparse
import collections
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

from doors import CATALOGUE, Cannot, Failed, say, shown
from script import GLOBALS, Script, notation
from table import ENVIRONMENT, HERE, Place, rows

SECONDS = 300


def script(door, written):
    """What is common, the client's classes, the global objects, one Sub for each row, and their calls."""
    lines = [(HERE / "client.vbs").read_text("ascii")]
    for properties, name in door.forms.items():
        lines += [f"Class {name}", *(f"Public {one}" for one in properties), "End Class"]
    for name in sorted(name for name in CATALOGUE.classes if name.lower() in GLOBALS):
        lines += [f"Dim {name}", f'Set {name} = CreateObject("quorkit.{name}")']
    for number, code in enumerate(written):
        lines += [f"Sub Row{number}", "On Error Resume Next", "Dim number", *code, "End Sub"]
    lines.append(f'Start {door.windows(door.folder)} & "\\"')
    return "\r\n".join(lines + [f"Row{number}" for number in range(len(written))] + [""])


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("server")
    parser.add_argument("--launcher", default="")
    parser.add_argument("--system", default="C:\\windows\\system32")
    parser.add_argument("--every", type=int, default=1)
    parser.add_argument("--keep")
    parser.add_argument("files", nargs="*")
    options = parser.parse_intermixed_args()
    folder = pathlib.Path(options.keep or tempfile.mkdtemp(prefix="quorkit-script-"))
    folder.mkdir(exist_ok=True)
    environment = dict(os.environ, **ENVIRONMENT, TMPDIR=str(folder))

    def run(program, *words):
        return subprocess.run([*options.launcher.split(), f"{options.system}\\{program}", *words], env=environment,
                              cwd=folder, stdin=subprocess.DEVNULL, timeout=SECONDS).returncode

    door, reasons, failures, written, said = Script(folder), collections.Counter(), [], [], []
    for name, row in list(rows(options.files))[::options.every]:
        place = Place(True)
        try:
            say(door, "vbscript", row, "windows", place)
            written.append(door.code)
            said.append((name, row, place))
        except Cannot as cannot:
            reasons[str(cannot)] += 1
            place.close()
    units = b"".join(unit.to_bytes(2, "little") for unit in [0xFEFF, *range(0x10000)])
    (folder / "units.txt").write_bytes(units)
    (folder / "rows.vbs").write_text(script(door, written), "ascii", newline="")
    server = "Z:" + os.path.abspath(options.server).replace("/", "\\")
    if run("regsvr32.exe", "/s", server) != 0:
        failures.append("the server does not register")
    elif run("cscript.exe", "rows.vbs") != 0:
        failures.append("the script failed")
    run("regsvr32.exe", "/s", "/u", server)
    told = folder / "answers.txt"
    lines = told.read_bytes().decode("utf-16", "surrogatepass").split("\r\n") if told.exists() else []
    door.answers = {}
    for line in filter(None, lines):
        try:
            answer = json.loads(line, strict=False, object_hook=notation)
            door.answers[answer["key"]] = answer
        except ValueError:
            failures.append(f"vbscript: no answer: {shown(line)}")
    for name, row, place in said:
        try:
            say(door, "vbscript", row, "windows", place)
        except Failed as failed:
            failures.append(f"vbscript: {name} wants {failed}")
        place.close()
    cannot = "".join(f"; {count} cannot: {why}" for why, count in reasons.most_common())
    print(f"vbscript: {len(said)} rows said, {len(door.answers)} answers{cannot}")
    print(*failures, sep="\n", end="\n" if failures else "")
    if not options.keep:
        shutil.rmtree(folder, ignore_errors=True)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
