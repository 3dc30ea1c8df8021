// What a worker does to a store of keys and values, and what must be in the store then.
#pragma once

#include <quorkit/values.h>

#include <compare>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "board.h"

namespace quorkit::soak {

/// A section, or the path of a registry key, and the name of a value in it.
struct Name {
    String place;
    String key;
    auto operator<=>(const Name&) const = default;
};

struct Change {
    enum class Kind {
        Put,
        PutNumber,
        PutMany,
        PutLines,
        Remove,
        RemoveMany,
        RemoveLines,
        RemovePlace
    };
    Kind kind = Kind::Put;
    String place;
    std::vector<std::pair<String, String>> entries;  ///< keys and values
};

/// The values of one worker.
struct State {
    std::map<Name, String> values;
    std::set<Name> loose;  ///< of a removal in several steps that was not ended: may be gone
};

/// What the worker changes at a step. It keeps to names of its own, in places that all share too.
Change changeOf(const Job& job, std::uint32_t step);
/// All names that this worker's changes may be about.
std::vector<Name> namesOf(Role role, std::uint32_t worker);
/// Whether all of the change happens in one step: a kill leaves the old state or the new one.
bool inOneStep(Role role, const Change& change);
void apply(const Change& change, State& state);
/// The change may have got anywhere.
void loosen(const Change& change, State& state);
/// What differs between what is there and what must be, for a person; "" for nothing.
std::string difference(const State& expected, const std::map<Name, String>& actual);
std::string describe(const Change& change);

enum class Answer {
    Yes,
    No,
    Unsaid,  ///< as a log entry, whose result is True whatever happens
};

/// Where the changes go.
class Store {
   public:
    virtual ~Store() = default;
    virtual Answer perform(const Change& change) = 0;
    virtual std::optional<String> read(const Name& name) = 0;
};

/// For Role::Ini `file` is the file; the registry is where the environment says.
std::unique_ptr<Store> storeOf(Role role, const std::string& file);

}  // namespace quorkit::soak
