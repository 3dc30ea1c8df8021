// The library as a whole, and its objects.
#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/picture.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "c/open_library.h"
#include "c/text.h"

namespace quorkit::c {
namespace {

template <class Result, class Get>
Result ofOpen(quorkit_library handle, Result none, Get get) {
    const Entrance entrance(handle);
    return entrance.outcome() == QUORKIT_OK ? get(entrance.library()) : none;
}

/// Gives the client the object that `make` makes.
template <class Make>
int give(quorkit_library library, quorkit_object* object, Make make) {
    return inside(library, [&](OpenLibrary& own) {
        need(object);
        *object = own.give(make(own));
    });
}

}  // namespace
}  // namespace quorkit::c

using namespace quorkit;
using namespace quorkit::c;

const char* quorkit_version() {
    return QUORKIT_VERSION;
}

int quorkit_error(quorkit_library library) {
    return ofOpen(library, 0, [](OpenLibrary& own) { return own.failure().number; });
}

const char* quorkit_error_text(quorkit_library library) {
    return ofOpen(library, "", [](OpenLibrary& own) { return own.failure().text.c_str(); });
}

const char* quorkit_error_source(quorkit_library library) {
    return ofOpen(library, "", [](OpenLibrary& own) { return own.failure().source.c_str(); });
}

size_t quorkit_error_argument(quorkit_library library) {
    return ofOpen(library, std::size_t{0}, [](OpenLibrary& own) {
        return own.failure().argument ? *own.failure().argument + 1 : std::size_t{0};
    });
}

const char* quorkit_reason(quorkit_library library) {
    return ofOpen(library, "", [](OpenLibrary& own) { return own.reason.c_str(); });
}

int quorkit_open(quorkit_library* library) {
    if (library == nullptr) return QUORKIT_NO_PLACE;
    try {
        *library = open();
        return QUORKIT_OK;
    } catch (...) {
        return errorOf(std::current_exception()).number;
    }
}

int quorkit_close(quorkit_library library) {
    return Entrance(library).close();
}

int quorkit_new(quorkit_library library, const char* class_name, quorkit_object* object) {
    return give(library, object,
                [&](OpenLibrary& own) { return own.library.object(textIn(class_name)); });
}

int quorkit_new_collection(quorkit_library library, quorkit_object* collection) {
    return give(library, collection, [](OpenLibrary&) { return Collection::make(); });
}

int quorkit_new_dictionary(quorkit_library library, quorkit_object* dictionary) {
    return give(library, dictionary, [](OpenLibrary&) { return Dictionary::make(); });
}

int quorkit_new_picture(quorkit_library library, const unsigned char* bytes, size_t length,
                        quorkit_object* picture) {
    return give(library, picture, [&](OpenLibrary&) {
        need(bytes);
        needLength(length);
        return std::make_shared<Picture>(std::string(reinterpret_cast<const char*>(bytes), length));
    });
}

int quorkit_release_object(quorkit_library library, quorkit_object object) {
    return inside(library, [&](OpenLibrary& own) { own.releaseObject(object); });
}

int quorkit_class_name(quorkit_library library, quorkit_object object, const char** name) {
    return inside(library, [&](OpenLibrary& own) {
        need(name);
        *name = own.object(object)->className();
    });
}

int quorkit_identity(quorkit_library library, quorkit_object object, size_t* identity) {
    return inside(library, [&](OpenLibrary& own) {
        need(identity);
        *identity = reinterpret_cast<std::uintptr_t>(own.object(object).get());
    });
}

int quorkit_set_key(quorkit_library library, quorkit_values values, size_t index,
                    quorkit_object collection, int position) {
    return inside(library, [&](OpenLibrary& own) {
        const auto* items = dynamic_cast<const Collection*>(own.object(collection).get());
        if (items == nullptr) throw Misuse{QUORKIT_WRONG_KIND};
        String key = items->entry(position).key;
        own.put(values, index) = std::move(key);
    });
}
