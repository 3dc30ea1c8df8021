#include <quorkit/QuorTesting.h>
#include <quorkit/ports/system.h>

#include <span>

#include "runtime/random.h"

namespace quorkit {
namespace {

// The order matters, because iMax selects the first entries of a table.
constexpr StringView kMaleFirstNames[] = {
    u"Anton",     u"Adrian", u"Andreas", u"Albert",  u"Beat",   u"Christian", u"Carlo",
    u"Daniel",    u"Ernst",  u"Erwin",   u"Fritz",   u"Hans",   u"Hanspeter", u"Heinz",
    u"J\u00FCrg", u"Kurt",   u"Karl",    u"Lars",    u"Lorenz", u"Marcel",    u"Marc",
    u"Marco",     u"Martin", u"Manfred", u"Patrick", u"Paul",   u"Peter",     u"Philippe",
    u"Ren\u00E9", u"Roman",  u"Roger",   u"Roland",  u"Robert", u"Rolf",      u"Stefan",
    u"Simon",     u"Thomas", u"Theo",    u"Ulrich",  u"Urs",    u"Werner",    u"Willy",
    u"Walter",    u"Yves"};
constexpr StringView kFemaleFirstNames[] = {
    u"Anna",   u"Andrea",  u"Alexandra", u"Beatrice",  u"Barbara",  u"Cornelia",   u"Claudia",
    u"Debora", u"Elsi",    u"Esther",    u"Gabriella", u"Heidi",    u"Jacqueline", u"Karin",
    u"Lara",   u"Margrit", u"Monika",    u"Mirjam",    u"Marianne", u"Nicole",     u"Patricia",
    u"Romana", u"Susanne", u"Sandra",    u"Simone",    u"Silvia",   u"Sonja",      u"Sibylle",
    u"Trudy",  u"Ursula",  u"Vreni",     u"Wanessa",   u"Yolanda"};
constexpr StringView kLastNames[] = {
    u"Amberg",        u"Bachmann",    u"Baumgartner",  u"B\u00E4rtschi",  u"Balsiger",
    u"Berger",        u"B\u00FCchi",  u"Bieri",        u"Blaser",         u"Bohren",
    u"Burri",         u"Coletti",     u"D\u00E4hler",  u"Derflinger",     u"Eggenberger",
    u"Eschle",        u"Etter",       u"Fischer",      u"Fl\u00FCckiger", u"Friedli",
    u"Gehrig",        u"Gerber",      u"Gisler",       u"H\u00E4nni",     u"Hurni",
    u"Junker",        u"K\u00E4ser",  u"Kilchenmann",  u"Kohler",         u"Koller",
    u"Lehmann",       u"Lengacher",   u"Locher",       u"L\u00F6tscher",  u"L\u00FCthi",
    u"M\u00E4der",    u"Marti",       u"Maurer",       u"Morf",           u"N\u00FCssli",
    u"Nydegger",      u"Nyffenegger", u"Pfister",      u"Porchet",        u"Ramseier",
    u"Rieder",        u"Ryser",       u"Sch\u00E4fer", u"Schmid",         u"Schnyder",
    u"Siegrist",      u"Steinmann",   u"Stettler",     u"Stoller",        u"Suter",
    u"Trachsler",     u"Thommen",     u"Vogel",        u"Wagner",         u"Wenger",
    u"Wyss",          u"Wyssen",      u"Zaugg",        u"Zbinden",        u"Zimmermann",
    u"Zurbr\u00FCgg", u"Zwahlen"};
constexpr StringView kOrganisationalUnits[] = {u"IT Entwicklung", u"IT Support", u"Verkauf",
                                               u"Marketing",      u"SAP",        u"Personaldienst",
                                               u"Administration"};

String draw(std::span<const StringView> table, Integer iMax) {
    const auto last = static_cast<Integer>(table.size() - 1);
    const int n = iMax < 0 || iMax > last ? last : iMax;
    // Values come in steps of 2^-24, so the product is never rounded up to n + 1.
    const float index = static_cast<float>(n + 1) * runtime::Rnd();
    return String(table[static_cast<std::size_t>(index)]);
}

}  // namespace

QuorTesting::QuorTesting(Ports& ports) {
    runtime::Randomize(ports.system.QueryPerformanceCounter());
}

String QuorTesting::GetRandomLastName(const Optional<Integer, -1>& iMax) {
    return draw(kLastNames, *iMax);
}

Variant QuorTesting::GetRandomFirstName(const Optional<ESexCode>& sexCode,
                                        const Optional<Integer, -1>& iMax) {
    const bool isMale = *sexCode == unkown ? runtime::Rnd() < 0.5F : *sexCode == male;
    return isMale ? draw(kMaleFirstNames, *iMax) : draw(kFemaleFirstNames, *iMax);
}

Variant QuorTesting::GetRandomOE(const Optional<Integer, -1>& iMax) {
    return draw(kOrganisationalUnits, *iMax);
}

}  // namespace quorkit
