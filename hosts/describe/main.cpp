// quorkit-describe FORM: the whole catalogue, for a build that makes something from it.
#include <cstdio>
#include <cstring>
#include <string>

#include "describe/describe.h"

namespace {

using namespace quorkit::describe;

constexpr struct {
    const char* option;
    std::string (*text)();
} kForms[] = {{"--idl", asIdl},
              {"--manifest", asManifest},
              {"--c-header", asCHeader},
              {"--json", [] { return asJson().dump(2) + '\n'; }},
              {"--markdown", [] { return asMarkdown(); }}};

}  // namespace

int main(int count, char** words) {
    for (const auto& [option, text] : kForms) {
        if (count != 2 || std::strcmp(words[1], option) != 0) continue;
        const bool written = std::fputs(text().c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
        return written ? 0 : 1;
    }
    std::fputs("usage: quorkit-describe --idl | --manifest | --c-header | --json | --markdown\n",
               stderr);
    return 2;
}
