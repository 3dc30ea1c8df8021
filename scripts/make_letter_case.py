#!/usr/bin/env python3
"""Writes src/base/letter_case_table.inc from Python's Unicode data.

    python3 scripts/make_letter_case.py > src/base/letter_case_table.inc
"""
import unicodedata


def simple_lower(unit):
    # U+0130 is the only character whose full lower case is longer than the simple one, which is
    # its first character.
    return chr(unit).lower()[0]


def simple_upper(unit):
    # Where the full upper case has several characters, the simple one equals the title case when
    # that is a single character, and is not there otherwise.
    character = chr(unit)
    candidates = (character.upper(), character.title(), character)
    return next(one for one in candidates if len(one) == 1)


def runs(mapping):
    """Characters at a distance of `stride` that move by the same `delta`."""
    found = []
    for unit in range(0x10000):
        if 0xD800 <= unit <= 0xDFFF:
            continue
        target = ord(mapping(unit))
        if target == unit or target > 0xFFFF:
            continue
        delta = target - unit
        if found:
            first, last, stride, run_delta = found[-1]
            gap = unit - last
            if delta == run_delta and gap in ((1, 2) if first == last else (stride,)):
                found[-1] = (first, unit, gap, delta)
                continue
        found.append((unit, unit, 1, delta))
    return found


def write(name, mapping):
    print(f"constexpr Run {name}[] = {{")
    for first, last, stride, delta in runs(mapping):
        print(f"    {{0x{first:04X}, 0x{last:04X}, {stride}, {delta}}},")
    print("};")


print(f"// Simple case mappings up to U+FFFF of Unicode {unicodedata.unidata_version}, made by")
print("// scripts/make_letter_case.py: first, last, stride, delta.")
print("// clang-format off")
write("kToLower", simple_lower)
write("kToUpper", simple_upper)
print("// clang-format on")
