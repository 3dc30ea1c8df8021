#include <gtest/gtest.h>

#include "hosts/command.h"

namespace quorkit::test {
namespace {

struct Exchange {
    std::string message;
    std::string answer;  ///< empty when none is expected
};

/// All messages go to one session, in order.
void expectAnswers(const std::vector<Exchange>& exchanges) {
    std::string input;
    std::string expected;
    for (const Exchange& one : exchanges) {
        input += one.message + '\n';
        if (!one.answer.empty()) expected += one.answer + '\n';
    }
    EXPECT_EQ(command(u"rpc", input).output, expected);
}

std::string request(const std::string& method, const std::string& parameters) {
    return R"({"jsonrpc":"2.0","id":1,"method":")" + method + R"(","params":)" + parameters + "}";
}
std::string result(const std::string& value) {
    return R"({"id":1,"jsonrpc":"2.0","result":)" + value + "}";
}
std::string fault(int code, const std::string& message, const std::string& id = "1") {
    return R"({"error":{"code":)" + std::to_string(code) + R"(,"message":")" + message +
           R"("},"id":)" + id + R"(,"jsonrpc":"2.0"})";
}
std::string failure(int number, const std::string& text) {
    return R"({"error":{"code":-32000,"data":{"number":)" + std::to_string(number) +
           R"(,"text":")" + text + R"("},"message":")" + text + R"("},"id":1,"jsonrpc":"2.0"})";
}

TEST(Rpc, CallsMembersAndKeepsObjects) {
    const std::string noMember = "Object doesn't support this property or method";
    expectAnswers({
        {request("create", R"({"class":"quorinifile"})"), result(R"({"object":1})")},
        {request("create", R"({"class":"QuorInifile"})"), result(R"({"object":2})")},
        {request("create", R"({"class":"GQuorStrings"})"), result(R"({"object":3})")},
        {request("create", R"({"class":"GQuorStrings"})"), result(R"({"object":3})")},
        {request("invoke", R"({"object":1,"member":"IniFileName","kind":"let","args":["a.ini"]})"),
         result(R"({"args":["a.ini"],"result":null})")},
        {request("invoke", R"({"object":1,"member":"IniFileName","kind":"get"})"),
         result(R"({"args":[],"result":"a.ini"})")},
        {request("invoke", R"({"object":2,"member":"inifilename"})"),
         result(R"({"args":[],"result":""})")},
        {request("release", R"({"object":1})"), result("null")},
        {request("invoke", R"({"object":1,"member":"IniFileName"})"),
         failure(424, "Object required")},
        {request("release", R"({"object":1})"), failure(424, "Object required")},
        {request("invoke", R"({"object":3,"member":"LPad","kind":"let"})"), failure(438, noMember)},
        {request("describe", R"({"class":"GQuorLanguage"})"),
         result(R"({"kind":"global","members":[],"name":"GQuorLanguage",)"
                R"("role":"a class with no members"})")},
    });
}

TEST(Rpc, AnswersWhatIsWrongWithAMessage) {
    expectAnswers({
        {"{", fault(-32700, "not JSON", "null")},
        {std::string(100'000, '['), fault(-32700, "nested too deeply", "null")},
        {std::string("{\"\0\":1}", 7), fault(-32700, "not JSON", "null")},
        {"1", fault(-32600, "a request is an object", "null")},
        {R"({"id":[1],"jsonrpc":"2.0","method":"create"})",
         fault(-32600, "id is a string, a number or null", "null")},
        {R"({"id":"x","method":"create"})",
         fault(-32600, R"(jsonrpc \"2.0\" and a method are needed)", R"("x")")},
        {R"({"id":"x","jsonrpc":"2.0","method":7})",
         fault(-32600, R"(jsonrpc \"2.0\" and a method are needed)", R"("x")")},
        {request("destroy", "{}"), fault(-32601, "no such method: destroy")},
        {request("create", "[]"), fault(-32602, "params is an object")},
        {request("create", "{}"), fault(-32602, "a string is needed: class")},
        {request("create", R"({"class":"QuorInifile","x":1})"),
         fault(-32602, "no such parameter: x")},
        {request("release", R"({"object":"1"})"), fault(-32602, "a number is needed: object")},
        {request("invoke", R"({"member":"LPad"})"),
         fault(-32602, "either class or object is needed")},
        {request("invoke", R"({"class":"GQuorStrings","member":"LPad","kind":"set"})"),
         fault(-32602, "kind is call, get or let")},
        {request("invoke", R"({"class":"GQuorStrings","member":"LPad","args":{}})"),
         fault(-32602, "args is an array")},
        {request("invoke", R"({"class":"GQuorStrings","member":"LPad","named":[]})"),
         fault(-32602, "named is an object")},
        {request("invoke", R"({"class":"GQuorStrings","member":"LPad","args":[{"x":1}]})"),
         fault(-32602, "not a value")},
    });
}

TEST(Rpc, AnswersBatchesAndLeavesNotificationsUnanswered) {
    const std::string notification = R"({"jsonrpc":"2.0","method":"destroy"})";
    expectAnswers({
        {"", ""},
        {" \r", ""},
        {notification, ""},
        {"[" + notification + "]", ""},
        {"[]", fault(-32600, "a batch is not empty", "null")},
        {"[1," + notification + "," + request("create", R"({"class":"QuorInifile"})") + "]\r",
         "[" + fault(-32600, "a request is an object", "null") + "," + result(R"({"object":1})") +
             "]"},
        {R"({"id":null,"jsonrpc":"2.0","method":"release","params":{"object":1}})",
         R"({"id":null,"jsonrpc":"2.0","result":null})"},
    });
}

}  // namespace
}  // namespace quorkit::test
