#!/usr/bin/env python3
"""speaker.py LIBRARY

Answers create, invoke and release as `quorkit rpc` does, through the C interface by ctypes.
"""
import base64
import ctypes
import datetime
import itertools
import json
import math
import sys
from ctypes import byref, c_char_p, c_double, c_int, c_short, c_size_t, c_uint, c_void_p

TYPES = {"p": c_void_p, "s": c_char_p, "n": c_size_t, "i": c_int, "u": c_uint, "h": c_short, "d": c_double}
# Functions by what follows the library; handles are pointers.
FUNCTIONS = {
    "p": "new_collection new_dictionary new_values release_object release_values",
    "pp": "class_name identity elements count", "ppp": "new_foreign", "sp": "new", "snp": "new_picture",
    "psip": "call_name", "pns": "set_name", "pnpi": "set_key", "pn": "set_empty set_null",
    "pnu": "set_error", "pni": "set_boolean set_long", "pnh": "set_integer", "pnd": "set_double set_date",
    "pnsn": "set_utf16", "pnsni": "set_bytes", "pnpiip": "set_array", "pnpp": "get_utf16 get_bytes get_bounds",
    "pnp": "kind_of get_error get_boolean get_integer get_long get_double get_date get_object get_elements set_object"}
MISSING = 0x80020004
TEXT_ARRAY, BYTE_ARRAY, VALUE_ARRAY = 9, 10, 11
CALLS = {"call": 0, "get": 1, "let": 2}
DAY_ZERO, DAY = datetime.datetime(1899, 12, 30), datetime.timedelta(days=1)
Bounds = c_int * 4  # lower and count of two dimensions
Call = ctypes.CFUNCTYPE(c_int, c_void_p, c_void_p, c_char_p, c_int, c_void_p)
Release = ctypes.CFUNCTYPE(None, c_void_p)


class Class(ctypes.Structure):
    _fields_ = [("name", c_char_p), ("call", Call), ("release", Release)]


class Refused(Exception):
    """With its number, the argument that did not fit, and a text."""


class Handle:
    """Given back when nobody has it any more."""

    def __init__(self, release, number):
        self.release, self._as_parameter_ = release, number

    def __del__(self):
        ask(self.release, self)


def ask(name, *arguments):
    arguments = [one.encode() if isinstance(one, str) else one for one in arguments]
    if outcome := getattr(native, "quorkit_" + name)(library, *arguments):
        text = native.quorkit_error_text(library).decode(errors="replace")
        raise Refused(outcome, native.quorkit_error_argument(library), text)


def got(name, place, *arguments):
    """What a function gives through its last pointer."""
    place = place()
    ask(name, *arguments, byref(place))
    return place.value


def block(name, unit, *arguments):
    """The bytes that a function gives as a pointer and a number of units."""
    start, units = c_void_p(), c_size_t()
    ask(name, *arguments, byref(start), byref(units))
    return ctypes.string_at(start, units.value * unit)


def new_object(kind, *arguments):
    return Handle("release_object", got(kind, c_void_p, *arguments))


def new_values(*content):
    values = Handle("release_values", got("new_values", c_void_p))
    for index, value in enumerate(content, 1):
        write(values, index, value)
    return values


def called(handle, name, *arguments):
    values = new_values(*arguments)
    ask("call_name", handle, name, CALLS["call"], values)
    return values


def counted(content, unit=1):
    return content, len(content) // unit


def array(items, *bounds):
    kind = TEXT_ARRAY if items and all(isinstance(item, str) for item in items) else VALUE_ARRAY
    return "array", new_values(*items), kind, len(bounds) // 2 if items else 0, Bounds(*bounds)


def filled(handle, additions):
    for addition in additions:
        called(handle, "Add", *addition)
    return "object", handle


def days_of(text):
    days, clock = divmod(datetime.datetime.fromisoformat(text) - DAY_ZERO, DAY)
    return days + math.copysign(clock / DAY, days)


def setter(value):
    """Which function sets a value, and with what."""
    match value:
        case None: return ("empty",)
        case bool(): return "boolean", value
        case int() if -2**31 <= value < 2**31: return "long", value
        case int() | float(): return "double", value
        case str(): return "utf16", *counted(value.encode("utf-16-le", "surrogatepass"), 2)
        case list(): return array(value, 0, len(value))
        case {"array": items}: return array(items, value.get("lower", 0), len(items))
        case {"table": [first, *_] as rows}:
            columns, lines = value.get("lower", (0, 0))
            return array(sum(rows, []), columns, len(first), lines, len(rows))
        case {"table": []}: return array([])
        case {"bytes": ""}: return "bytes", None, 0, 0
        case {"bytes": text}: return "bytes", *counted(base64.b64decode(text)), value.get("lower", 0)
        case {"date": str(text)}: return "date", days_of(text)
        case {"missing": True}: return "error", MISSING
        case {"nothing": True}: return "object", None
        case {"null": True}: return ("null",)
        case {"object": number}: return "object", known(number)
        case {"collection": entries}:
            pairs = ([entry[name] for name in ("item", "key") if name in entry] for entry in entries)
            return filled(new_object("new_collection"), pairs)
        case {"dictionary": pairs}: return filled(new_object("new_dictionary"), pairs)
        case {"picture": text}: return "object", new_object("new_picture", *counted(base64.b64decode(text)))
    [(kind, content)] = value.items()  # integer, date, error
    return kind, content


def write(values, index, value):
    kind, *content = setter(value)
    ask("set_" + kind, values, index, *content)


def iso_date(days):
    try:
        whole = math.trunc(days)
        time = DAY_ZERO + datetime.timedelta(whole, milliseconds=round(abs(days - whole) * 86_400_000))
    except OverflowError:
        return days
    return time.isoformat(timespec="milliseconds" if time.microsecond else "seconds") if time.year >= 100 else days


SCALARS = {  # by kind
    2: ("get_error", c_uint, lambda code: {"missing": True} if code == MISSING else {"error": code}),
    3: ("get_boolean", c_int, bool),
    4: ("get_integer", c_short, lambda number: {"integer": number}),
    5: ("get_long", c_int, int),
    6: ("get_double", c_double, lambda number: number if math.isfinite(number) else None),
    7: ("get_date", c_double, lambda days: {"date": iso_date(days)})}


def read(values, index):
    match got("kind_of", c_int, values, index):
        case 0: return None
        case 1: return {"null": True}
        case 8: return block("get_utf16", 2, values, index).decode("utf-16-le", "surrogatepass")
        case 9 | 10 | 11 as kind: return read_array(kind, values, index)
        case 12: return read_object(got("get_object", c_void_p, values, index))
        case kind:
            name, place, make = SCALARS[kind]
            return make(got(name, place, values, index))


def elements(name, *arguments):
    values = new_values()
    ask(name, *arguments, values)
    return read_all(values)


def read_all(values):
    return [read(values, index) for index in range(1, got("count", c_size_t, values) + 1)]


def read_array(kind, *place):
    dimensions, bounds = c_int(), Bounds(0, 0, 0, 1)
    ask("get_bounds", *place, byref(dimensions), bounds)
    lower, width, lower2, height = bounds
    if width * height == 0:
        return {"array": [], "lower": 0}
    if kind == BYTE_ARRAY:
        return {"bytes": base64.b64encode(block("get_bytes", 1, *place)).decode(), "lower": lower}
    items = elements("get_elements", *place)
    if dimensions.value == 1:
        return {"array": items, "lower": lower}
    return {"table": [items[at:at + width] for at in range(0, len(items), width)], "lower": [lower, lower2]}


def read_object(number):
    if number is None:
        return {"nothing": True}
    handle = Handle("release_object", number)
    match got("class_name", c_char_p, handle):
        case b"Collection": return {"collection": [
            entry(handle, position, item) for position, item in enumerate(elements("elements", handle), 1)]}
        case b"Dictionary":
            items = elements("get_elements", called(handle, "Items"), 0)
            return {"dictionary": list(map(list, zip(elements("elements", handle), items)))}
        case b"Picture": return {"picture": read(called(handle, "File"), 0)["bytes"]}
        case _: return {"object": number_of(handle)}


def entry(collection, position, item):
    values = new_values()
    ask("set_key", values, 0, collection, position)
    return {"item": item, **({"key": key} if (key := read(values, 0)) else {})}


def number_of(handle):
    identity = got("identity", c_size_t, handle)
    for number, other in objects.items():
        if got("identity", c_size_t, other) == identity:
            return number
    objects[number := next(numbers)] = handle
    return number


def known(number):
    if number not in objects:
        raise Refused(424, 0, "Object required")
    return objects[number]


@Call
def member(data, _, name, kind, values):
    """Of an object of ours, which has properties."""
    properties, name, let = foreign[data], name.decode().lower(), kind == CALLS["let"]
    try:
        if name not in properties:
            raise Refused(438)
        if got("count", c_size_t, values) != let:
            raise Refused(450)
        if let:
            properties[name] = read(values, 1)
        else:
            write(values, 0, properties[name])
        return 0
    except Refused as refused:
        return refused.args[0]


def answer(method, params):
    if method == "release":
        del objects[params["object"]]
        return None
    if "properties" in params:
        foreign[data := next(numbers)] = {name.lower(): value for name, value in params["properties"].items()}
        handle = new_object("new_foreign", byref(ours), data)
    else:
        handle = known(params["object"]) if "object" in params else new_object("new", params["class"])
    if method == "create":
        return {"object": number_of(handle)}
    args, named = params.get("args", []), params.get("named", {})
    values = new_values(*args, *named.values())
    for index, name in enumerate(named, len(args) + 1):
        ask("set_name", values, index, name)
    ask("call_name", handle, params["member"], CALLS[params.get("kind", "call")], values)
    return {"result": read(values, 0), "args": read_all(values)}


native = ctypes.CDLL(sys.argv[1])
for letters, names in FUNCTIONS.items():
    for function in names.split():
        getattr(native, "quorkit_" + function).argtypes = [c_void_p, *map(TYPES.get, letters)]
native.quorkit_error_argument.argtypes, native.quorkit_error_argument.restype = [c_void_p], c_size_t
native.quorkit_error_text.argtypes, native.quorkit_error_text.restype = [c_void_p], c_char_p
library = c_void_p()
native.quorkit_open(byref(library))
numbers, objects, foreign = itertools.count(1), {}, {}
ours = Class(b"Object", member, Release(foreign.pop))
for line in sys.stdin:
    request = json.loads(line)
    try:
        outcome = {"result": answer(request["method"], request["params"])}
    except Refused as refused:
        number, argument, text = refused.args
        outcome = {"error": {"code": -32000 if number > 0 else -32602, "message": text,
                             "data": {"number": number, "text": text, "argument": argument}}}
    print(json.dumps({"jsonrpc": "2.0", "id": request["id"], **outcome}), flush=True)
objects.clear()
sys.exit(native.quorkit_close(library))
