#include <quorkit/dispatch.h>

using namespace quorkit;

int main() {
    Library library;
    std::vector<Variant> arguments = {u"0", u"7", Long{3}};
    const Variant text =
        library.global(u"GQuorStrings")->call(u"LPad", CallKind::Call, {arguments});
    return text == Variant(u"007") ? 0 : 1;
}
