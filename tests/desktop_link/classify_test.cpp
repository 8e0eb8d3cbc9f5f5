// Sorting a received text into notification, response and error reply.

#include "desktop_link/incoming_message.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace {

using orvanta::link::ClassifiedMessage;
using orvanta::link::classify_message;
using orvanta::link::ErrorMessage;
using orvanta::link::NotificationMessage;
using orvanta::link::ResponseMessage;
using orvanta::link::Result;

Result<ClassifiedMessage> classify(std::string_view text) { return classify_message(text.data(), text.size()); }

// The version word is required but not looked at; it always reads 2.0.
// White space may follow the text, and a null result is a result.
TEST(Classify, Response) {
  auto r = classify(" {\"jsonrpc\":\"1.0\",\"id\":\"a\",\"result\":{\"k\":[1]}} \n\t");
  ASSERT_TRUE(r.has_value());
  const auto& response = std::get<ResponseMessage>(r.value());
  EXPECT_EQ(response.id, "a");
  EXPECT_EQ(response.result, std::string_view(R"({"k":[1]})"));
  EXPECT_EQ(response.jsonrpc, "2.0");
  auto null_result = classify(R"({"jsonrpc":"2.0","id":"a","result":null})");
  ASSERT_TRUE(null_result.has_value());
  EXPECT_EQ(std::get<ResponseMessage>(null_result.value()).result, std::string_view("null"));
}

// `method` wins over everything else: such a message never completes a
// waiting request.
TEST(Classify, AnythingWithAMethodIsANotification) {
  for (std::string_view text : {R"({"jsonrpc":"2.0","method":"m"})",
                                R"({"jsonrpc":"2.0","method":"m","id":"a","result":{}})",
                                R"({"jsonrpc":"2.0","method":"m","error":{"code":1,"category":"c","message":"x"}})"}) {
    auto r = classify(text);
    ASSERT_TRUE(r.has_value()) << text;
    const auto& n = std::get<NotificationMessage>(r.value());
    EXPECT_EQ(n.method, "m");
    EXPECT_FALSE(n.params.has_value());
  }
  auto with_params = classify(R"({"jsonrpc":"2.0","method":"m","params":[1, 2]})");
  ASSERT_TRUE(with_params.has_value());
  EXPECT_EQ(*std::get<NotificationMessage>(with_params.value()).params, std::string_view("[1, 2]"));
}

// A null id is no id.
TEST(Classify, ErrorReplyWithAndWithoutId) {
  const struct {
    const char* id_member;
    std::optional<std::string> id;
  } rows[] = {{R"("id":"z",)", "z"}, {"", std::nullopt}, {R"("id":null,)", std::nullopt}};
  for (const auto& row : rows) {
    auto r = classify(std::string(R"({"jsonrpc":"2.0",)") + row.id_member +
                      R"("error":{"code":-32600,"category":"desktop_api","message":"x"}})");
    ASSERT_TRUE(r.has_value()) << row.id_member;
    const auto& e = std::get<ErrorMessage>(r.value());
    EXPECT_EQ(e.code, -32600);
    EXPECT_EQ(e.category, "desktop_api");
    EXPECT_EQ(e.message, "x");
    EXPECT_EQ(e.id, row.id) << row.id_member;
  }
}

TEST(Classify, RefusedTexts) {
  for (std::string_view text : {
           "",
           "   ",
           R"({"jsonrpc":"2.0","result":{}})",          // result without id
           R"({"id":"a","result":{}})",                 // no version word
           R"({"jsonrpc":"2.0","id":1,"result":{}})",   // numeric id
           R"({"jsonrpc":"2.0","id":"a"})",             // no kind at all
           R"({"jsonrpc":"2.0","id":"a","result":{}} x)",
           R"({"jsonrpc":"2.0","id":"a","error":null})",
           "[]",
       }) {
    auto r = classify(text);
    EXPECT_FALSE(r.has_value()) << text;
    EXPECT_EQ(r.error(), std::errc::bad_message) << text;
  }
}

}  // namespace
