// The contract table said to the plain classes: what direct.py generates calls this.
#pragma once

#include <quorkit/collection.h>
#include <quorkit/dictionary.h>
#include <quorkit/picture.h>

#include <cstddef>
#include <map>
#include <string>

namespace quorkit::test {

class RowBeingSaid;

class DirectRow {
   public:
    explicit DirectRow(RowBeingSaid& row) : row_(row) {}

    /// Does the steps before this one that are no calls.
    void begin(std::size_t step);
    /// Looks at what came of the call.
    void gave(const Variant& result);
    void raised(const AutomationError& error);
    /// Does the steps that are left.
    void finish();
    /// What a variable holds that the call may have changed.
    void changed(const char* parameter, Variant value) { finals_[parameter] = std::move(value); }

    // An argument of the step by its place in it, such as "/args/0".
    Variant any(const char* place);
    String text(const char* place) { return any(place).get<String>(); }
    Date date(const char* place) { return any(place).get<Date>(); }
    Array<Byte> bytes(const char* place) { return any(place).get<Array<Byte>>(); }
    Array<String> strings(const char* place);
    Array<Variant> variants(const char* place);
    ObjectRef object(const char* place) { return any(place).get<ObjectRef>(); }
    CollectionRef collection(const char* place) { return Collection::of(object(place)); }
    DictionaryRef dictionary(const char* place) { return Dictionary::of(object(place)); }
    PictureRef picture(const char* place) { return Picture::of(object(place)); }

   private:
    void doUntil(std::size_t step);
    void expect(Variant result, Long error);

    RowBeingSaid& row_;
    std::size_t done_ = 0;
    std::map<std::string, Variant> finals_;
};

/// Says rows of a file, by their numbers; `cannot` counts the others by reason.
void sayDirectly(const std::string& file,
                 const std::map<std::size_t, void (*)(DirectRow& row)>& rows, const char* cannot);

}  // namespace quorkit::test
