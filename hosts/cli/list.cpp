#include "cli/list.h"

#include <quorkit/catalogue.h>

#include <algorithm>
#include <iomanip>
#include <string>

#include "describe/signature.h"

namespace quorkit::cli {
namespace {

constexpr std::size_t kWidth = 100;

void listMembers(std::ostream& out, const ClassInfo& info) {
    std::string line = "   ";
    std::string previous;
    for (const MemberInfo& member : info.members()) {
        if (member.name == previous) continue;  // the let that follows its get
        previous = member.name;
        if (line.size() + 1 + previous.size() > kWidth) {
            out << line << '\n';
            line = "   ";
        }
        line += ' ' + previous;
    }
    if (!previous.empty()) out << line << '\n';
}

}  // namespace

void list(std::ostream& out) {
    std::size_t widest = 0;
    for (const ClassInfo& info : classes())
        widest = std::max(widest, std::string(info.name).size());
    std::size_t total = 0;
    for (const ClassInfo& info : classes()) {
        const std::size_t count = info.members().size();
        total += count;
        out << std::left << std::setw(static_cast<int>(widest)) << info.name << "  " << std::setw(9)
            << describe::kindName(info.kind) << "  " << count << '\n';
        listMembers(out, info);
    }
    out << total << " members in " << classes().size() << " classes\n";
}

}  // namespace quorkit::cli
