// A client of the C interface that does anything in any order: each two bytes are a function and
// what it is done to, of handles that are good, gone, or of another kind. Finds: crashes, outcomes
// that are none, results for one who has no library.
#include <c/open_library.h>
#include <quorkit/ports/memory.h>

#include <array>
#include <cstddef>
#include <string>

#include "support/target.h"

namespace quorkit::fuzz {
namespace {

class Client {
   public:
    Client(quorkit_library library, std::string_view input) : input_(input) {
        libraries_[1] = library;
    }
    bool done() const { return input_.empty(); }

    void step() {
        const unsigned function = next();
        const quorkit_library library = libraries_[next() % 8 == 0 ? 0 : 1];
        const quorkit_values values = lists_[next() % lists_.size()];
        const quorkit_object object = objects_[next() % objects_.size()];
        const std::size_t index = next() % 8;
        const int outcome = act(function, library, values, object, index);
        promise(outcome >= QUORKIT_TOO_LONG && outcome < 1000, "an outcome is one");
        promise(library != nullptr || outcome < 0, "nothing works without a library");
        promise(outcome == QUORKIT_OK || library == nullptr || quorkit_error(library) == outcome,
                "what failed is told");
    }

   private:
    unsigned next() {
        if (input_.empty()) return 0;
        const unsigned char byte = static_cast<unsigned char>(input_.front());
        input_.remove_prefix(1);
        return byte;
    }
    std::string_view text() {
        const std::string_view found = input_.substr(0, next() % 16);
        input_.remove_prefix(std::min(found.size(), input_.size()));
        return found;
    }
    template <class Handle, std::size_t N>
    int keep(std::array<Handle, N>& all, int outcome, Handle made) {
        if (outcome == QUORKIT_OK) all[next() % N] = made;
        return outcome;
    }
    int act(unsigned function, quorkit_library library, quorkit_values values,
            quorkit_object object, std::size_t index) {
        quorkit_object made = nullptr;
        quorkit_values list = nullptr;
        int number = 0;
        std::size_t length = 0;
        switch (function % 20) {
            case 0:
                number = quorkit_new_values(library, &list);
                return keep(lists_, number, list);
            case 1:
                return quorkit_release_values(library, values);
            case 2:
                number = quorkit_new(library, kClasses[next() % kClasses.size()], &made);
                return keep(objects_, number, made);
            case 3:
                return quorkit_release_object(library, object);
            case 4: {
                const std::string_view given = text();
                return quorkit_set_utf8(library, values, index, given.data(), given.size());
            }
            case 5:
                return quorkit_set_long(library, values, index, static_cast<int>(next()) - 20);
            case 6:
                return quorkit_set_double(library, values, index, next() / 7.0 - 9);
            case 7:
                return quorkit_set_error(library, values, index, QUORKIT_MISSING);
            case 8:
                return quorkit_set_object(library, values, index, object);
            case 9: {
                const quorkit_bounds bounds[] = {
                    {static_cast<int>(next()) - 3, number = next() % 5},
                    {1, static_cast<int>(next() % 4)}};
                return quorkit_set_array(library, values, index, lists_[next() % lists_.size()],
                                         static_cast<int>(9 + next() % 4),
                                         static_cast<int>(next() % 4), bounds);
            }
            case 10:
                return quorkit_get_elements(library, values, index, lists_[next() % lists_.size()]);
            case 11:
                number = quorkit_get_object(library, values, index, &made);
                return keep(objects_, number, made);
            case 12: {
                const char* found = nullptr;
                const int outcome = quorkit_get_utf8(library, values, index, &found, &length);
                promise(outcome != QUORKIT_OK || found[length] == 0, "a text ends");
                return outcome;
            }
            case 13:
                return quorkit_elements(library, object, values);
            case 14:
                return quorkit_clear(library, values);
            case 15:
                return quorkit_set_name(library, values, index, kNames[next() % kNames.size()]);
            case 16:
                return quorkit_set_key(library, values, index, object,
                                       static_cast<int>(next()) - 1);
            case 17:
                number = quorkit_new_collection(library, &made);
                return keep(objects_, number, made);
            default:
                return quorkit_call_name(library, object, kNames[next() % kNames.size()],
                                         static_cast<int>(next() % 4), values);
        }
    }

    static constexpr std::array kClasses = {"GQuorStrings", "QuorInifile", "QuorCollection",
                                            "GQuorConvert", "QuorAddress", "\xFF"};
    static constexpr std::array kNames = {"StringReplace",
                                          "setValueByKey",
                                          "getValueByKey",
                                          "getAllKeyNames",
                                          "count",
                                          "Add",
                                          "Item",
                                          "Remove",
                                          "IniFileName",
                                          "WriteKeyValue",
                                          "newValue",
                                          "s",
                                          "CollectionToArray",
                                          "setAttribut",
                                          "ReadSectionKeys",
                                          "ArrayToCollection"};

    std::string_view input_;
    std::array<quorkit_library, 2> libraries_ = {};
    std::array<quorkit_values, 4> lists_ = {};
    std::array<quorkit_object, 6> objects_ = {};
};

}  // namespace

void run(std::string_view input) {
    MemoryPorts ports;
    const quorkit_library library = c::open(ports);
    Client client(library, input);
    while (!client.done()) client.step();
    promise(quorkit_close(library) == QUORKIT_OK, "a library is closed");
    promise(quorkit_close(library) == QUORKIT_BAD_HANDLE, "it is closed once");
}

}  // namespace quorkit::fuzz
