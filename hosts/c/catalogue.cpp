// What the library publishes.
#include <quorkit/catalogue.h>

#include <cstddef>

#include "c/open_library.h"

namespace quorkit::c {
namespace {

/// The public classes, and behind them those of the runtime's objects.
const ClassInfo* classAt(std::size_t index) {
    const auto known = classes();
    if (index < known.size()) return &known[index];
    index -= known.size();
    return index < runtimeClasses().size() ? &runtimeClasses()[index] : nullptr;
}

const MemberInfo* memberAt(std::size_t ofClass, std::size_t index) {
    const ClassInfo* const info = classAt(ofClass);
    return info != nullptr && index < info->members().size() ? &info->members()[index] : nullptr;
}

const ParameterInfo* parameterAt(std::size_t ofClass, std::size_t member, std::size_t index) {
    const MemberInfo* const info = memberAt(ofClass, member);
    return info != nullptr && index < info->parameterCount ? &info->parameterRow[index] : nullptr;
}

template <class Rows>
auto* at(const Rows& rows, std::size_t index) {
    return index < rows.size() ? &rows[index] : nullptr;
}

/// Fills the client's record from a row, if there is one.
template <class Row, class Record, class Fill>
int tell(const Row* row, Record* record, Fill fill) {
    if (record == nullptr) return QUORKIT_NO_PLACE;
    if (row == nullptr) return QUORKIT_NO_INDEX;
    *record = fill(*row);
    return QUORKIT_OK;
}

}  // namespace
}  // namespace quorkit::c

using namespace quorkit;
using namespace quorkit::c;

int quorkit_class_at(size_t index, quorkit_class_info* info) {
    return tell(classAt(index), info, [](const ClassInfo& row) {
        return quorkit_class_info{.name = row.name,
                                  .kind = static_cast<int>(row.kind),
                                  .role = row.role,
                                  .identity = row.identity,
                                  .interface_identity = row.interfaceIdentity,
                                  .members = row.members().size()};
    });
}

int quorkit_member_at(size_t of_class, size_t index, quorkit_member_info* info) {
    return tell(memberAt(of_class, index), info, [](const MemberInfo& row) {
        return quorkit_member_info{.identifier = row.identifier,
                                   .name = row.name,
                                   .kind = static_cast<int>(row.kind),
                                   .result = row.result.name(),
                                   .sentence = row.sentence,
                                   .parameters = row.parameterCount};
    });
}

int quorkit_parameter_at(size_t of_class, size_t member, size_t index,
                         quorkit_parameter_info* info) {
    return tell(parameterAt(of_class, member, index), info, [](const ParameterInfo& row) {
        return quorkit_parameter_info{.name = row.name,
                                      .type = row.type.name(),
                                      .by_reference = row.byReference ? 1 : 0,
                                      .changed = row.changed ? 1 : 0,
                                      .result = row.result ? 1 : 0,
                                      .optional = row.optional() ? 1 : 0};
    });
}

int quorkit_enumeration_at(size_t index, quorkit_enumeration_info* info) {
    return tell(at(enumerations(), index), info, [](const EnumerationInfo& row) {
        return quorkit_enumeration_info{
            .name = row.name, .sentence = row.sentence, .constants = row.constants.size()};
    });
}

int quorkit_constant_at(size_t enumeration, size_t index, quorkit_constant_info* info) {
    const EnumerationInfo* const of = at(enumerations(), enumeration);
    return tell(of == nullptr ? nullptr : at(of->constants, index), info,
                [](const ConstantInfo& row) {
                    return quorkit_constant_info{.name = row.name, .value = row.value};
                });
}

int quorkit_set_default(quorkit_library library, quorkit_values values, size_t index,
                        size_t of_class, size_t member, size_t parameter) {
    return inside(library, [&](OpenLibrary& own) {
        const ParameterInfo* const row = parameterAt(of_class, member, parameter);
        if (row == nullptr) throw Misuse{QUORKIT_NO_INDEX};
        if (!row->optional()) throw Misuse{QUORKIT_WRONG_KIND};
        own.put(values, index) = row->defaultValue();
    });
}
