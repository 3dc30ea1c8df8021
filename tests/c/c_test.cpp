// The C interface against clients that make mistakes, call back, and have threads.
#include <c/quorkit.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace quorkit::test {
namespace {

class CInterface : public testing::Test {
   protected:
    quorkit_library library = nullptr;
    quorkit_values values = nullptr;

    void SetUp() override {
        ASSERT_EQ(quorkit_open(&library), QUORKIT_OK);
        ASSERT_EQ(quorkit_new_values(library, &values), QUORKIT_OK);
    }
    void TearDown() override { quorkit_close(library); }

    quorkit_object make(const char* name) {
        quorkit_object object = nullptr;
        EXPECT_EQ(quorkit_new(library, name, &object), QUORKIT_OK) << name;
        return object;
    }
    void set(std::size_t index, const char* text) {
        EXPECT_EQ(quorkit_set_utf8(library, values, index, text, QUORKIT_TO_ZERO), QUORKIT_OK);
    }
    std::string text(std::size_t index) {
        const char* bytes = nullptr;
        std::size_t length = 0;
        EXPECT_EQ(quorkit_get_utf8(library, values, index, &bytes, &length), QUORKIT_OK);
        return {bytes, length};
    }
    int number(std::size_t index) {
        int found = -1;
        EXPECT_EQ(quorkit_get_long(library, values, index, &found), QUORKIT_OK);
        return found;
    }
};

TEST_F(CInterface, TellsMisuse) {
    const quorkit_object strings = make("GQuorStrings");
    quorkit_object gone = make("QuorInifile");
    quorkit_release_object(library, gone);
    quorkit_values old = nullptr;
    quorkit_new_values(library, &old);
    quorkit_release_values(library, old);
    quorkit_library closed = nullptr;
    quorkit_open(&closed);
    quorkit_close(closed);
    const auto odd = reinterpret_cast<quorkit_library>(~std::uintptr_t{0});
    quorkit_set_long(library, values, 1, 7);
    set(2, "a");

    quorkit_object object = nullptr;
    int out = 77;
    std::size_t length = 77;
    const char* bytes = "untouched";
    const unsigned short unit = 'a';
    const quorkit_bounds negative = {0, -1};
    const quorkit_bounds huge[] = {{0, 0x7FFFFFFF}, {0, 0x7FFFFFFF}};
    const quorkit_bounds beyond = {0x7FFFFFFF, 2};
    const struct {
        int outcome;
        int wanted;
    } cases[] = {
        {quorkit_open(nullptr), QUORKIT_NO_PLACE},
        {quorkit_close(nullptr), QUORKIT_BAD_HANDLE},
        {quorkit_close(closed), QUORKIT_BAD_HANDLE},
        {quorkit_new(odd, "GQuorStrings", &object), QUORKIT_BAD_HANDLE},
        {quorkit_new(library, nullptr, &object), QUORKIT_NO_PLACE},
        {quorkit_new(library, "GQuorStrings", nullptr), QUORKIT_NO_PLACE},
        {quorkit_new(library, "Nothing", &object), 429},
        {quorkit_new(library, "\xFF", &object), QUORKIT_NO_TEXT},
        {quorkit_release_object(library, gone), QUORKIT_BAD_HANDLE},
        {quorkit_release_object(library, nullptr), QUORKIT_BAD_HANDLE},
        {quorkit_release_values(library, old), QUORKIT_BAD_HANDLE},
        {quorkit_call_name(library, gone, "LPad", QUORKIT_CALL, values), QUORKIT_BAD_HANDLE},
        {quorkit_call_name(library, strings, "LPad", QUORKIT_CALL, old), QUORKIT_BAD_HANDLE},
        {quorkit_call_name(library, strings, nullptr, QUORKIT_CALL, values), QUORKIT_NO_PLACE},
        {quorkit_call_name(library, strings, "LPad", 9, values), QUORKIT_WRONG_KIND},
        {quorkit_call_name(library, strings, "Nothing", QUORKIT_CALL, values), 438},
        {quorkit_call(library, strings, 12, QUORKIT_CALL, values), 438},
        {quorkit_set_long(library, values, 4, 1), QUORKIT_NO_INDEX},
        {quorkit_set_name(library, values, 3, "s"), QUORKIT_NO_INDEX},
        {quorkit_get_long(library, values, 3, &out), QUORKIT_NO_INDEX},
        {quorkit_get_long(library, values, 2, &out), QUORKIT_WRONG_KIND},
        {quorkit_get_long(library, values, 1, nullptr), QUORKIT_NO_PLACE},
        {quorkit_get_utf8(library, values, 1, &bytes, &length), QUORKIT_WRONG_KIND},
        {quorkit_set_utf8(library, values, 1, "\xC0\x80", 2), QUORKIT_NO_TEXT},
        {quorkit_set_utf8(library, values, 1, "a", QUORKIT_TO_ZERO - 1), QUORKIT_TOO_LONG},
        {quorkit_set_utf8(library, values, 1, nullptr, 1), QUORKIT_NO_PLACE},
        {quorkit_set_utf16(library, values, 1, &unit, QUORKIT_TO_ZERO / 2), QUORKIT_TOO_LONG},
        {quorkit_set_bytes(library, values, 1, nullptr, 1, 0), QUORKIT_NO_PLACE},
        {quorkit_set_bytes(library, values, 1, nullptr, 0x80000000u, 0), QUORKIT_NO_PLACE},
        {quorkit_set_array(library, values, 1, values, QUORKIT_TEXT, 1, huge), QUORKIT_WRONG_KIND},
        {quorkit_set_array(library, values, 1, values, QUORKIT_TEXT_ARRAY, 1, huge),
         QUORKIT_WRONG_KIND},
        {quorkit_set_array(library, values, 1, values, QUORKIT_VALUE_ARRAY, 1, nullptr),
         QUORKIT_NO_PLACE},
        {quorkit_set_array(library, values, 1, values, QUORKIT_VALUE_ARRAY, 3, huge),
         QUORKIT_TOO_LONG},
        {quorkit_set_array(library, values, 1, values, QUORKIT_VALUE_ARRAY, 2, huge),
         QUORKIT_TOO_LONG},
        {quorkit_set_array(library, values, 1, values, QUORKIT_VALUE_ARRAY, 1, &negative),
         QUORKIT_TOO_LONG},
        {quorkit_set_array(library, values, 1, values, QUORKIT_VALUE_ARRAY, 1, &beyond), 9},
        {quorkit_new_picture(library, nullptr, 3, &object), QUORKIT_NO_PLACE},
        {quorkit_set_key(library, values, 1, strings, 1), QUORKIT_WRONG_KIND},
        {quorkit_new_foreign(library, nullptr, nullptr, &object), QUORKIT_NO_PLACE},
        {quorkit_class_at(1000, nullptr), QUORKIT_NO_PLACE},
        {quorkit_set_default(library, values, 1, 0, 1000, 0), QUORKIT_NO_INDEX},
    };
    for (const auto& one : cases) EXPECT_EQ(one.outcome, one.wanted) << "case " << &one - cases;
    // Nothing has changed.
    EXPECT_EQ(out, 77);
    EXPECT_EQ(length, 77u);
    EXPECT_STREQ(bytes, "untouched");
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(number(1), 7);
    EXPECT_EQ(text(2), "a");
    EXPECT_STREQ(quorkit_error_text(nullptr), "");
    EXPECT_EQ(quorkit_error(closed), 0);
}

TEST_F(CInterface, CallsAndTellsWhatFailed) {
    const quorkit_object strings = make("gquorstrings");
    set(1, "0");
    set(2, "3");
    quorkit_set_name(library, values, 2, "maxlen");
    set(3, "7");
    quorkit_set_name(library, values, 3, "S");
    EXPECT_EQ(quorkit_call_name(library, strings, "lpad", QUORKIT_CALL, values), QUORKIT_OK);
    EXPECT_EQ(text(0), "007");
    EXPECT_EQ(text(2), "7");
    EXPECT_EQ(number(3), 3);  // in the order of the parameters, each of its type

    quorkit_clear(library, values);
    set(1, "0");
    set(2, "x");
    quorkit_set_name(library, values, 2, "maxLen");
    EXPECT_EQ(quorkit_call_name(library, strings, "LPad", QUORKIT_CALL, values), 449);
    EXPECT_EQ(text(2), "x");  // a refused call takes nothing
    quorkit_set_utf8(library, values, 3, "7", 1);
    quorkit_set_name(library, values, 3, "s");
    EXPECT_EQ(quorkit_call_name(library, strings, "LPad", QUORKIT_CALL, values), 13);
    EXPECT_EQ(quorkit_error(library), 13);
    EXPECT_STREQ(quorkit_error_text(library), "Type mismatch");
    EXPECT_STREQ(quorkit_error_source(library), "quorkit.GQuorStrings");
    EXPECT_EQ(quorkit_error_argument(library), 3u);
    int kind = -1;
    EXPECT_EQ(quorkit_kind_of(library, values, 0, &kind), QUORKIT_OK);
    EXPECT_EQ(kind, QUORKIT_EMPTY);

    // A surrogate without its partner, and a zero, come back.
    const unsigned short odd[] = {'a', 0xD800, 0, 0xDC41};
    EXPECT_EQ(quorkit_set_utf16(library, values, 1, odd, 4), QUORKIT_OK);
    EXPECT_EQ(text(1), std::string("a\xED\xA0\x80\0\xED\xB1\x81", 8));
    const std::string same = text(1);
    EXPECT_EQ(quorkit_set_utf8(library, values, 2, same.data(), same.size()), QUORKIT_OK);
    const unsigned short* units = nullptr;
    std::size_t length = 0;
    EXPECT_EQ(quorkit_get_utf16(library, values, 2, &units, &length), QUORKIT_OK);
    EXPECT_EQ(std::vector(units, units + length), std::vector(odd, odd + 4));
    EXPECT_EQ(quorkit_set_value(library, values, 3, values, 2), QUORKIT_OK);
    EXPECT_EQ(text(3), same);
    // What stands for bytes that are none may stand in a text, also beside a pair of surrogates.
    set(1, "\xEF\xBF\xBD\xED\xA0\xBD\xED\xB8\x80");
    EXPECT_EQ(text(1), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
    EXPECT_EQ(quorkit_set_utf8(library, values, 1, "\xEF\xBF\xBD\xFF", 4), QUORKIT_NO_TEXT);
}

/// A client's own object: what it does is a function.
struct Own {
    using Action = std::function<int(quorkit_library, const std::string&, quorkit_values)>;
    Action action;
    bool* gone = nullptr;

    static int call(void* data, quorkit_library library, const char* name, int,
                    quorkit_values values) {
        return static_cast<Own*>(data)->action(library, name, values);
    }
    static void release(void* data) { *static_cast<Own*>(data)->gone = true; }
};
constexpr quorkit_class kOwn = {"Own", Own::call, Own::release};

TEST_F(CInterface, CallsBack) {
    bool gone = false;
    Own list{{}, &gone};
    quorkit_object object = nullptr;
    EXPECT_EQ(quorkit_new_foreign(library, &kOwn, &list, &object), QUORKIT_OK);
    const quorkit_object convert = make("GQuorConvert");
    const auto join = [&] {
        quorkit_clear(library, values);
        quorkit_set_object(library, values, 1, object);
        set(2, ";");
        return quorkit_call_name(library, convert, "CollectionToStringToken", QUORKIT_CALL, values);
    };
    list.action = [&](quorkit_library in, const std::string& name, quorkit_values given) {
        if (name == "Count") return quorkit_set_long(in, given, 0, 2);
        if (name != "Item") return 438;
        int position = 0;
        quorkit_get_long(in, given, 1, &position);
        // The library may be called meanwhile, but not closed.
        EXPECT_EQ(quorkit_close(in), QUORKIT_BUSY);
        quorkit_clear(in, given);
        EXPECT_EQ(quorkit_call_name(in, make("QuorInifile"), "IniFileName", QUORKIT_GET, given),
                  QUORKIT_OK);
        return quorkit_set_long(in, given, 0, position * 10);
    };
    EXPECT_EQ(join(), QUORKIT_OK);
    EXPECT_EQ(text(0), "10;20");
    // One that gives back what is not its own, one that fails, one that lets go of all.
    list.action = [&](quorkit_library in, const std::string&, quorkit_values given) {
        return quorkit_release_values(in, given);
    };
    EXPECT_EQ(join(), 13);
    list.action = [](quorkit_library, const std::string&, quorkit_values) { return -5; };
    EXPECT_EQ(join(), 13);
    list.action = [&](quorkit_library in, const std::string& name, quorkit_values given) {
        quorkit_release_values(in, values);
        quorkit_release_object(in, object);
        quorkit_release_object(in, convert);
        return quorkit_set_long(in, given, 0, name == "Count" ? 0 : 1);
    };
    EXPECT_EQ(join(), QUORKIT_BAD_HANDLE);
    EXPECT_TRUE(gone);
    quorkit_new_values(library, &values);
}

TEST_F(CInterface, ReleasesCirclesWhenItIsClosed) {
    bool gone = false;
    Own own{[](quorkit_library, const std::string&, quorkit_values) { return 438; }, &gone};
    quorkit_object object = nullptr, collection = nullptr;
    quorkit_new_foreign(library, &kOwn, &own, &object);
    quorkit_new_collection(library, &collection);
    for (const quorkit_object held : {object, collection}) {
        quorkit_clear(library, values);
        quorkit_set_object(library, values, 1, held);
        set(2, held == object ? "Key" : "itself");
        EXPECT_EQ(quorkit_call_name(library, collection, "Add", QUORKIT_CALL, values), QUORKIT_OK);
    }
    quorkit_set_key(library, values, 1, collection, 1);
    EXPECT_EQ(text(1), "Key");
    EXPECT_EQ(quorkit_elements(library, collection, values), QUORKIT_OK);
    quorkit_object again = nullptr;
    quorkit_get_object(library, values, 1, &again);
    std::size_t one = 0, other = 1;
    void* data = nullptr;
    EXPECT_EQ(quorkit_identity(library, object, &one), QUORKIT_OK);
    EXPECT_EQ(quorkit_identity(library, again, &other), QUORKIT_OK);
    EXPECT_EQ(one, other);
    EXPECT_EQ(quorkit_foreign_data(library, again, &kOwn, &data), QUORKIT_OK);
    EXPECT_EQ(data, &own);
    EXPECT_FALSE(gone);
    EXPECT_EQ(quorkit_close(library), QUORKIT_OK);
    EXPECT_TRUE(gone);
}

TEST_F(CInterface, IsUsedByOneThreadAtATime) {
    bool gone = false;
    int outcome = 77;
    Own own{[&](quorkit_library in, const std::string&, quorkit_values given) {
                std::thread([&] { outcome = quorkit_set_long(in, given, 0, 1); }).join();
                return quorkit_set_long(in, given, 0, 5);
            },
            &gone};
    quorkit_object object = nullptr;
    quorkit_new_foreign(library, &kOwn, &own, &object);
    EXPECT_EQ(quorkit_call_name(library, object, "any", QUORKIT_CALL, values), QUORKIT_OK);
    EXPECT_EQ(outcome, QUORKIT_BUSY);
    EXPECT_EQ(number(0), 5);
    std::thread([&] { outcome = quorkit_set_long(library, values, 0, 6); }).join();
    EXPECT_EQ(outcome, QUORKIT_OK);
    EXPECT_EQ(number(0), 6);
    // Handles do not become those of the next one, nor libraries each other's.
    quorkit_library other = nullptr;
    quorkit_open(&other);
    EXPECT_EQ(quorkit_release_object(library, object), QUORKIT_OK);
    for (int i = 0; i < 5000; ++i) {
        quorkit_object next = nullptr;
        quorkit_new(library, "QuorCollection", &next);
        EXPECT_NE(next, object);
        quorkit_release_object(library, next);
    }
    EXPECT_EQ(quorkit_release_object(library, object), QUORKIT_BAD_HANDLE);
    EXPECT_EQ(quorkit_close(other), QUORKIT_OK);
    EXPECT_EQ(quorkit_close(other), QUORKIT_BAD_HANDLE);
    // An old handle disturbs nobody who has its place now.
    quorkit_library next = nullptr;
    quorkit_open(&next);
    std::atomic<bool> stop = false;
    std::thread stranger([&] {
        while (!stop) EXPECT_EQ(quorkit_close(other), QUORKIT_BAD_HANDLE);
    });
    for (int i = 0; i < 20'000; ++i) EXPECT_EQ(quorkit_new_values(next, &values), QUORKIT_OK) << i;
    stop = true;
    stranger.join();
    EXPECT_EQ(quorkit_close(next), QUORKIT_OK);
}

// The catalogue from outside is the one inside.
TEST_F(CInterface, WalksTheCatalogue) {
    std::size_t classes = 0, members = 0, optional = 0;
    quorkit_class_info one = {};
    for (; quorkit_class_at(classes, &one) == QUORKIT_OK; ++classes) {
        quorkit_member_info member = {};
        for (std::size_t i = 0; quorkit_member_at(classes, i, &member) == QUORKIT_OK; ++i) {
            members += one.kind != QUORKIT_RUNTIME;
            quorkit_parameter_info parameter = {};
            for (std::size_t p = 0; quorkit_parameter_at(classes, i, p, &parameter) == QUORKIT_OK;
                 ++p) {
                EXPECT_NE(std::string(parameter.type), "") << parameter.name;
                EXPECT_EQ(quorkit_set_default(library, values, 1, classes, i, p),
                          parameter.optional != 0 ? QUORKIT_OK : QUORKIT_WRONG_KIND);
                optional += parameter.optional != 0;
            }
        }
    }
    EXPECT_EQ(classes, 18u);
    EXPECT_EQ(members, 207u);
    EXPECT_GT(optional, 80u);
    quorkit_enumeration_info enumeration = {};
    quorkit_constant_info constant = {};
    EXPECT_EQ(quorkit_enumeration_at(0, &enumeration), QUORKIT_OK);
    EXPECT_EQ(quorkit_constant_at(0, enumeration.constants - 1, &constant), QUORKIT_OK);
    EXPECT_EQ(quorkit_constant_at(0, enumeration.constants, &constant), QUORKIT_NO_INDEX);
}

}  // namespace
}  // namespace quorkit::test
