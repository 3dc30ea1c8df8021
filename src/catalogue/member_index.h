// The rows of a class, to be found by identifier or by name.
#pragma once

#include <quorkit/catalogue.h>

#include <cstdint>
#include <span>
#include <vector>

namespace quorkit {

class MemberIndex {
   public:
    /// Refers to the rows, which must outlive it.
    explicit MemberIndex(std::span<const MemberInfo> rows);

    const MemberInfo* find(Long identifier, CallKind kind) const;
    /// Without regard to case.
    const MemberInfo* find(StringView name, CallKind kind) const;

   private:
    /// A hash table of rows; several may have the same key. The places behind the one of a key's
    /// hash hold what did not fit there, up to the first that is free.
    struct Place {
        std::uint64_t key = 0;
        const MemberInfo* row = nullptr;
    };
    using Table = std::vector<Place>;
    static void add(Table& table, std::uint64_t key, const MemberInfo& row);
    template <class IsWanted>
    static const MemberInfo* found(const Table& table, std::uint64_t key, IsWanted isWanted);

    Table byIdentifier_;
    Table byName_;
};

}  // namespace quorkit
