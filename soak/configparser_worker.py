"""A worker that adds keys with Python's configparser: BOARD FILE WORKER FIRST STEPS.

BOARD is the descriptor of the memory that it shares with its controller (board.h).
"""

import configparser
import mmap
import struct
import sys
import time

UNDER_WAY, DONE = 1, 2
PAGE, STEP = 2048, 24  # the offset of the first step, and the size of each


def main():
    board, file, worker, first, steps = sys.argv[1:]
    memory = mmap.mmap(int(board), 0)
    for step in range(int(first), int(steps)):
        if struct.unpack_from("<I", memory, 0)[0]:
            break
        at = PAGE + STEP * step
        struct.pack_into("<Q", memory, at, time.monotonic_ns())
        struct.pack_into("<I", memory, at + 16, UNDER_WAY)
        struct.pack_into("<I", memory, 4, step + 1)
        add(file, f"w{worker}.k{step}x", f"v{step}")
        struct.pack_into("<I", memory, at + 16, DONE)
        struct.pack_into("<Q", memory, at + 8, time.monotonic_ns())


def add(file, key, value):
    config = configparser.ConfigParser(interpolation=None)
    config.optionxform = str
    try:
        config.read(file)
    except configparser.Error:
        pass  # half a file; the part that could be read is used
    if not config.has_section("Shared"):
        config.add_section("Shared")
    config.set("Shared", key, value)
    with open(file, "w") as out:
        config.write(out)


main()
