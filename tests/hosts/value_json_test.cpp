#include "json/value_json.h"

#include <gtest/gtest.h>
#include <quorkit/collection.h>

namespace quorkit::test {
namespace {

using namespace json;

struct Form : Object {
    const char* className() const override { return "Form"; }
};

class Values : public testing::Test {
   protected:
    Variant read(std::string_view text) { return fromJson(readJson(text), objects); }
    std::string rewritten(std::string_view text) { return writeJson(toJson(read(text), objects)); }

    ObjectTable objects;
};

TEST_F(Values, SurviveTheWay) {
    for (const char* one :
         {"5.0", R"({"missing":true})", R"({"date":1e+300})", R"({"bytes":"AP+A","lower":1})",
          R"({"array":["a",{"array":[1],"lower":2147483647}],"lower":1})",
          R"({"lower":[0,1],"table":[["k","v"],["k2","v2"]]})",
          R"({"picture":"R0lGODlhAQABAAAAAA=="})", "\"\u00E4\U0001F600\\u0000\\\\ud800\\udfff\""})
        EXPECT_EQ(rewritten(one), one);
}

TEST_F(Values, HaveTheTypeThatTheNotationSays) {
    EXPECT_EQ(read("7"), Variant(Long{7}));
    EXPECT_EQ(read("2147483648"), Variant(2147483648.0));
    EXPECT_EQ(read("-12345678901234567890123"), Variant(-12345678901234567890123.0));
    EXPECT_EQ(read(R"({"date":"1899-12-31T12:00:00"})"), Variant(Date{1.5}));
    EXPECT_EQ(read(R"({"date":"1899-12-29T12:00:00"})"), Variant(Date{-1.5}));
    EXPECT_EQ(read(R"(["a"])"), Variant(Array<String>({u"a"})));
    EXPECT_EQ(read(R"(["a",null])"), Variant(Array<Variant>({Variant(u"a"), Variant()})));
    EXPECT_EQ(read("[]"), Variant(Array<Variant>()));
    EXPECT_EQ(read(R"({"bytes":""})"), Variant(Array<Byte>()));
    EXPECT_EQ(read(R"("\ud83d\ude00\uDBFF\uDFFF")"), Variant(u"\U0001F600\U0010FFFF"));
    EXPECT_EQ(read(R"("\udc00\ud800")"), Variant(String{0xDC00, 0xD800}));
    EXPECT_EQ(writeJson(toJson(Variant(std::numeric_limits<double>::infinity()), objects)), "null");
    EXPECT_EQ(writeJson(toJson(Variant(Array<String>(Bounds{3, 0})), objects)),
              R"({"array":[],"lower":0})");
}

TEST_F(Values, OfNoSuchNotationAreRefused) {
    for (const char* one :
         {"{}", R"({"text":"a"})", R"({"null":false})", R"({"integer":32768})",
          R"({"integer":1.0})", R"({"integer":1,"lower":0})", R"({"null":true,"missing":true})",
          R"({"date":"2023-02-29"})", R"({"date":"2024-01-31T24:00:00"})",
          R"({"date":"0099-12-31"})", R"({"array":{}})"})
        EXPECT_THROW(read(one), BadValue) << one;
    for (const char* one : {R"({"array":[1],"lower":"0"})", R"({"array":[1,2],"lower":2147483647})",
                            R"({"bytes":"A==="})", R"({"bytes":"AP+"})", R"({"bytes":"AP A"})",
                            R"({"table":[["k","v"],["k"]]})",
                            R"({"table":[["k","v"]],"lower":[0]})", R"({"collection":[1]})",
                            R"({"collection":[{"item":1,"key":2}]})", R"({"dictionary":[["k"]]})"})
        EXPECT_THROW(read(one), BadValue) << one;
}

TEST_F(Values, KeepAnObjectUnderOneNumberUntilItIsReleased) {
    const ObjectRef object = std::make_shared<Form>();
    EXPECT_EQ(writeJson(toJson(object, objects)), R"({"object":1})");
    EXPECT_EQ(toJson(object, objects), toJson(object, objects));
    EXPECT_EQ(read(R"({"object":1})"), Variant(object));
    objects.release(1);
    EXPECT_THROW(read(R"({"object":1})"), AutomationError);
    EXPECT_EQ(writeJson(toJson(object, objects)), R"({"object":2})");
}

TEST(JsonText, ThatIsBrokenIsRefused) {
    const std::string deep(100'000, '[');
    for (const std::string& one :
         {std::string(), std::string("{"), std::string("[1,]"), std::string("\"\xFF\""),
          std::string("\"\xED\xA0\x80\""), std::string("\\ud800"), std::string("\"\\ud8\""),
          std::string("1e999"), std::string("\"\\"), std::string("\"\0\"", 3), deep,
          deep + std::string(100'000, ']')})
        EXPECT_THROW(readJson(one), JsonError) << one.substr(0, 20);
}

}  // namespace
}  // namespace quorkit::test
