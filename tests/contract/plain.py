"""Values of the contract table as they travel to automation/pascal/session.pas and back."""
import base64
import datetime
import math
import struct

DAY_ZERO = datetime.datetime(1899, 12, 30)
MILLISECONDS = 86400000  # of a day
# Types as automation numbers them.
PLAIN = {"Empty": 0, "Null": 1, "Integer": 2, "Long": 3, "Double": 5, "Date": 7, "Nothing": 9, "Error": 10,
         "Boolean": 11}
TEXT, VARIANT, BYTE = 8, 12, 17
NOT_GIVEN = 0x80020004


def converted(value, source, target):
    return struct.unpack("<" + target, struct.pack("<" + source, value))[0]


def days(date):
    """The number of a date."""
    if not isinstance(date, str):
        return date
    number = (datetime.datetime.fromisoformat(date) - DAY_ZERO) / datetime.timedelta(milliseconds=1) / MILLISECONDS
    return 2 * math.floor(number) - number if number < 0 else number


def date(number):
    """The notation of a date; one outside the calendar is its number."""
    try:
        since = datetime.timedelta(math.trunc(number), milliseconds=round(abs(math.fmod(number, 1)) * MILLISECONDS))
        return {"date": (DAY_ZERO + since).isoformat(timespec="milliseconds").removesuffix(".000")}
    except OverflowError:
        return {"date": number}


def plain(value, what):
    """The 64 bits of a value."""
    held = value[what.lower()] if isinstance(value, dict) else value
    if what in ("Double", "Date"):
        return converted(days(held), "d", "q")
    return 0 if what in ("Empty", "Null", "Nothing") else -held if what == "Boolean" else held


def read(one):
    """What the program has told, from the inside out."""
    if "elements" in one:
        elements, bounds = one["elements"], one["bounds"]
        width = bounds[1] - bounds[0] + 1
        if not elements:
            return {"array": [], "lower": 0}
        if len(bounds) > 2:
            return {"table": [elements[i:i + width] for i in range(0, len(elements), width)], "lower": bounds[::2]}
        if one["type"] % 4096 == BYTE:
            return {"bytes": base64.b64encode(bytes(elements)).decode(), "lower": bounds[0]}
        return {"array": elements, "lower": bounds[0]}
    if "plain" not in one:
        return one
    what = dict(zip(PLAIN.values(), PLAIN)).get(one["type"], "Byte")
    short, long, double = (converted(one["plain"], "q", to) for to in ("hxxxxxx", "ixxxx", "d"))
    if what == "Date":
        return date(double)
    if what == "Error" and long % 2**32 == NOT_GIVEN:
        return {"missing": True}
    return {"Empty": None, "Long": long, "Byte": short % 256, "Double": double, "Boolean": short != 0,
            "Integer": {"integer": short}, "Error": {"error": long % 2**32}}.get(what, {what.lower(): True})
