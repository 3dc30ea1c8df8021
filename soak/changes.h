// A worker's changes to a store of keys and values, and the content that the store must then have.
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

/// A section or the path of a registry key, and the name of a value in it.
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
    std::vector<std::pair<String, String>> entries;  ///< pairs of key and value
};

/// The values of one worker.
struct State {
    std::map<Name, String> values;
    std::set<Name> loose;  ///< may be gone: a removal in several steps did not end
};

/// The change of a worker at a step. It concerns only the worker's own names, in shared places too.
Change changeOf(const Job& job, std::uint32_t step);
/// All names that this worker may change.
std::vector<Name> namesOf(Role role, std::uint32_t worker);
/// Whether the change is one step, so that a kill leaves the old state or the new one.
bool inOneStep(Role role, const Change& change);
void apply(const Change& change, State& state);
/// Notes that the change may have been made in part.
void loosen(const Change& change, State& state);
/// The differences between the actual and the expected content, for a person; "" for none.
std::string difference(const State& expected, const std::map<Name, String>& actual);
std::string describe(const Change& change);

enum class Answer {
    Yes,
    No,
    Unsaid,  ///< like a log entry, whose result is always True
};

/// A store that takes the changes.
class Store {
   public:
    virtual ~Store() = default;
    virtual Answer perform(const Change& change) = 0;
    virtual std::optional<String> read(const Name& name) = 0;
};

/// For Role::Ini `file` is the file. The registry is in the folder that the environment names.
std::unique_ptr<Store> storeOf(Role role, const std::string& file);

}  // namespace quorkit::soak
