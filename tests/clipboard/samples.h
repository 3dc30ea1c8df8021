// A small picture of every kind.
#pragma once

#include <string>
#include <vector>

#include "json/base64.h"

namespace quorkit::test {

struct Sample {
    std::string type;  ///< the name that programs of an X server use
    bool metafile;
    std::string file;
};

inline std::vector<Sample> samples() {
    const auto sample = [](const char* type, const char* base64) {
        const auto bytes = json::fromBase64(base64).value();
        const bool metafile = std::string(type).ends_with("mf");
        return Sample{type, metafile, {bytes.begin(), bytes.end()}};
    };
    return {
        // Red above transparent.
        sample("image/png",
               "iVBORw0KGgoAAAANSUhEUgAAAAEAAAACCAYAAACZgbYnAAAAD0lEQVR4nGP4z8AAREAAAA77Af8H0hXt"
               "AAAAAElFTkSuQmCC"),
        sample("image/bmp",
               "Qk1OAAAAAAAAAEYAAAAoAAAAAgAAAAIAAAABAAgAAAAAAAgAAAAAAAAAAAAAAAQAAAAAAAAAAAECA"
               "wQFBgcICQoLDA0ODwABAAACAwAA"),
        sample("image/jpeg",
               "/9j/4AAQSkZJRgABAQEASABIAAD/2wBDAAEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEB"
               "AQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQH/wAALCAABAAEBAREA/8QAFAABAAAAAAAAAAAAAAAA"
               "AAAAAP/EABQQAQAAAAAAAAAAAAAAAAAAAAD/2gAIAQEAAD8AP//Z"),
        sample("image/gif", "R0lGODdhAQABAIAAAP///////ywAAAAAAQABAAACAkQBADs="),
        sample("image/emf",
               "AQAAAFgAAAAAAAAAAAAAAAkAAAAJAAAAAAAAAAAAAAAIAQAACAEAACBFTUYAAAEAbAAAAAIAAAABAAA"
               "AAAAAAAAAAAAAAAAAAAQAAAADAAAOAQAAywAAAA4AAAAUAAAAAAAAABAAAAAUAAAA"),
        sample("image/wmf", "183GmgAAAAAAAGQAMgCgBQAAAADnUgEACQAAAwwAAAAAAAMAAAAAAAMAAAAAAA=="),
    };
}

}  // namespace quorkit::test
