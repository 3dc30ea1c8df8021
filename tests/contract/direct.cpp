#include "contract/direct.h"

#include <quorkit/errors.h>

#include <iostream>
#include <utility>

#include "contract/table.h"

namespace quorkit::test {

void DirectRow::doUntil(std::size_t step) {
    for (; done_ < step; ++done_) row_.doneWithout(row_.steps()[done_]);
}

void DirectRow::finish() {
    doUntil(row_.steps().size());
}

Variant DirectRow::any(const char* place) {
    return row_.value(row_.steps()[done_][Json::json_pointer(place)]);
}

void DirectRow::begin(std::size_t step) {
    doUntil(step);
    finals_.clear();
}

void DirectRow::gave(const Variant& result) {
    expect(result, 0);
}

void DirectRow::raised(const AutomationError& error) {
    expect({}, error.number());
}

void DirectRow::expect(Variant result, Long error) {
    const Json& step = row_.steps()[done_++];
    const std::string argument = error == 0 ? "" : step.value("argument", "");  // C++ has none
    row_.expect(step, {std::move(result), std::move(finals_), error, argument});
}

Array<String> DirectRow::strings(const char* place) {
    const Variant value = any(place);
    return value.is<Array<String>>() ? value.get<Array<String>>() : Array<String>();
}

Array<Variant> DirectRow::variants(const char* place) {
    const Variant value = any(place);
    if (value.is<Array<Variant>>()) return value.get<Array<Variant>>();
    const auto& texts = value.get<Array<String>>();
    return Array<Variant>({texts.elements().begin(), texts.elements().end()}, texts.lower());
}

void sayDirectly(const std::string& file,
                 const std::map<std::size_t, void (*)(DirectRow& row)>& rows, const char* cannot) {
    sayRows(file, [&](std::size_t number, RowBeingSaid& said) {
        const auto found = rows.find(number);
        if (found == rows.end()) return;
        DirectRow row(said);
        found->second(row);
        row.finish();
    });
    std::cout << "direct: " << file << ", " << rows.size() << " rows" << cannot << '\n';
}

}  // namespace quorkit::test
