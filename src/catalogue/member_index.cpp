#include "catalogue/member_index.h"

#include <bit>
#include <string_view>

#include "base/published_names.h"

namespace quorkit {
namespace {

std::uint64_t identifierKey(Long identifier, bool isLet) {
    return (static_cast<std::uint64_t>(identifier) << 1) | isLet;
}

/// The length and the ends of the name: few members of a class share these.
template <class Name>
std::uint64_t nameKey(const Name& name, bool isLet) {
    if (name.empty()) return isLet;
    const auto lower = [](auto unit) { return base::asciiLower(static_cast<char16_t>(unit)); };
    const std::uint64_t ends = lower(name.front()) << 16 | lower(name.back());
    return (std::uint64_t{name.size()} << 34) | (ends << 1) | isLet;
}

std::size_t placeOf(std::uint64_t key, std::size_t places) {
    constexpr std::uint64_t golden = 0x9E3779B97F4A7C15;
    return static_cast<std::size_t>(key * golden >> 32) & (places - 1);
}

}  // namespace

void MemberIndex::add(Table& table, std::uint64_t key, const MemberInfo& row) {
    std::size_t at = placeOf(key, table.size());
    while (table[at].row != nullptr) at = (at + 1) & (table.size() - 1);
    table[at] = {key, &row};
}

template <class IsWanted>
const MemberInfo* MemberIndex::found(const Table& table, std::uint64_t key, IsWanted isWanted) {
    for (std::size_t at = placeOf(key, table.size()); table[at].row != nullptr;
         at = (at + 1) & (table.size() - 1))
        if (table[at].key == key && isWanted(*table[at].row)) return table[at].row;
    return nullptr;
}

MemberIndex::MemberIndex(std::span<const MemberInfo> rows)
    : byIdentifier_(std::bit_ceil(2 * rows.size() + 1)), byName_(byIdentifier_.size()) {
    for (const MemberInfo& row : rows) {
        const bool isLet = row.kind == MemberKind::PropertyLet;
        add(byIdentifier_, identifierKey(row.identifier, isLet), row);
        add(byName_, nameKey(std::string_view(row.name), isLet), row);
    }
}

const MemberInfo* MemberIndex::find(Long identifier, CallKind kind) const {
    return found(byIdentifier_, identifierKey(identifier, kind == CallKind::Let),
                 [](const MemberInfo&) { return true; });
}

const MemberInfo* MemberIndex::find(StringView name, CallKind kind) const {
    return found(byName_, nameKey(name, kind == CallKind::Let),
                 [&](const MemberInfo& row) { return base::sameName(name, row.name); });
}

}  // namespace quorkit
