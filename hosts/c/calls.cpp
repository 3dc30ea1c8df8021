// Calls of members.
#include <cstddef>
#include <utility>
#include <vector>

#include "c/open_library.h"
#include "c/text.h"

namespace quorkit::c {
namespace {

CallKind kindIn(int kind) {
    if (kind == QUORKIT_CALL) return CallKind::Call;
    if (kind == QUORKIT_GET) return CallKind::Get;
    if (kind == QUORKIT_LET) return CallKind::Let;
    throw Misuse{QUORKIT_WRONG_KIND};
}

/// The arguments leave the list, unless some have names: a refused call gives those not back.
void take(Values& from, Call& request) {
    const std::size_t positional = from.positional();
    for (std::size_t i = positional; i < from.items.size(); ++i)
        request.named.push_back({from.nameAt(i), from.items[i]});
    if (request.named.empty())
        request.positional = std::move(from.items);
    else
        request.positional.assign(from.items.begin(),
                                  from.items.begin() + static_cast<std::ptrdiff_t>(positional));
}

void giveBack(CallResult& outcome, Values& to) {
    to.result = std::move(outcome.result);
    if (outcome.arguments.size() < to.items.size()) return;  // those with names went nowhere
    to.items = std::move(outcome.arguments);
    to.names.clear();
}

int callMember(quorkit_library library, quorkit_object object, Call request, int kind,
               quorkit_values values) {
    return inside(library, [&](OpenLibrary& own) -> int {
        const ObjectRef target = own.object(object);  // the client may let go of it meanwhile
        request.kind = kindIn(kind);
        request.variablesMayBeOmitted = true;
        take(own.list(values), request);
        CallResult outcome = call(*target, std::move(request));
        giveBack(outcome, own.list(values));
        own.reason = std::move(outcome.reason);
        return outcome.error ? own.fail(std::move(*outcome.error)) : QUORKIT_OK;
    });
}

}  // namespace
}  // namespace quorkit::c

using namespace quorkit;
using namespace quorkit::c;

int quorkit_identifier(quorkit_library library, quorkit_object object, const char* name,
                       int* identifier) {
    return inside(library, [&](OpenLibrary& own) {
        need(identifier);
        *identifier = own.object(object)->identifierOf(textIn(name));
    });
}

int quorkit_call(quorkit_library library, quorkit_object object, int identifier, int kind,
                 quorkit_values values) {
    return callMember(library, object, {.identifier = identifier}, kind, values);
}

int quorkit_call_name(quorkit_library library, quorkit_object object, const char* name, int kind,
                      quorkit_values values) {
    return inside(library, [&](OpenLibrary&) {
        return callMember(library, object, {.member = textIn(name)}, kind, values);
    });
}

int quorkit_set_name(quorkit_library library, quorkit_values values, size_t index,
                     const char* name) {
    return inside(library, [&](OpenLibrary& own) {
        Values& all = own.list(values);
        if (index == 0 || index > all.items.size()) throw Misuse{QUORKIT_NO_INDEX};
        String read = textIn(name);
        if (all.names.size() < index) all.names.resize(index);
        all.names[index - 1] = std::move(read);
    });
}

int quorkit_elements(quorkit_library library, quorkit_object object, quorkit_values values) {
    return inside(library, [&](OpenLibrary& own) {
        const ObjectRef target = own.object(object);
        Variant all = target->elements();
        Values& list = own.list(values);
        list.clear();
        list.items = std::move(all.get<Array<Variant>>().elements());
    });
}
