// Objects of the client's own.
#include <quorkit/errors.h>

#include <memory>
#include <string>
#include <utility>

#include "c/open_library.h"
#include "c/text.h"

namespace quorkit::c {
namespace {

/// An object whose members are a function of the client's.
class Foreign final : public Object {
   public:
    Foreign(quorkit_library home, const quorkit_class& own, void* data)
        : home_(home), own_(own), data_(data), name_(own.name == nullptr ? "" : own.name) {}
    Foreign(const Foreign&) = delete;
    Foreign& operator=(const Foreign&) = delete;
    ~Foreign() override {
        if (own_.release != nullptr) own_.release(data_);
    }

    const char* className() const override { return name_.c_str(); }
    Variant call(StringView name, CallKind kind, const Arguments& arguments) override;

    const quorkit_class& ownClass() const { return own_; }
    void* data() const { return data_; }

   private:
    quorkit_library home_;
    const quorkit_class& own_;
    void* const data_;
    const std::string name_;
};

Variant Foreign::call(StringView name, CallKind kind, const Arguments& arguments) {
    if (!arguments.named.empty()) raise(ErrorNumber::NamedArgumentNotFound);
    const Entrance entrance(home_);
    if (entrance.outcome() != QUORKIT_OK) raise(ErrorNumber::InternalError);
    OpenLibrary& library = entrance.library();
    Values given;
    given.items.assign(arguments.positional.begin(), arguments.positional.end());
    const std::uintptr_t handle = library.values.add(std::move(given));
    const int outcome = own_.call(data_, home_, toUtf8(name, Malformed::Keep).c_str(),
                                  static_cast<int>(kind), reinterpret_cast<quorkit_values>(handle));
    auto values = library.values.take(handle);
    if (outcome != QUORKIT_OK)
        raise(outcome > 0 ? ErrorNumber{outcome} : ErrorNumber::InternalError);
    if (!values) raise(ErrorNumber::InternalError);  // the client gave it back
    for (std::size_t i = 0; i < values->items.size() && i < arguments.positional.size(); ++i)
        arguments.positional[i] = std::move(values->items[i]);
    return std::move(values->result);
}

}  // namespace
}  // namespace quorkit::c

using namespace quorkit;
using namespace quorkit::c;

int quorkit_new_foreign(quorkit_library library, const quorkit_class* own, void* data,
                        quorkit_object* object) {
    return inside(library, [&](OpenLibrary& open) {
        need(object);
        need(own);
        if (own->call == nullptr) throw Misuse{QUORKIT_NO_PLACE};
        *object = open.give(std::make_shared<Foreign>(library, *own, data));
    });
}

int quorkit_foreign_data(quorkit_library library, quorkit_object object, const quorkit_class* own,
                         void** data) {
    return inside(library, [&](OpenLibrary& open) {
        need(data);
        const auto* foreign = dynamic_cast<const Foreign*>(open.object(object).get());
        if (foreign == nullptr || &foreign->ownClass() != own) throw Misuse{QUORKIT_WRONG_KIND};
        *data = foreign->data();
    });
}
