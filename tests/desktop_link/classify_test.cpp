// Sorting a received text into notification, response and error reply.

#include "desktop_link/incoming_message.hpp"

#include <gtest/gtest.h>

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

TEST(Classify, Response) {
  auto r = classify(R"({"jsonrpc":"1.0","id":"a","result":{"k":[1]}})");
  ASSERT_TRUE(r.has_value());
  const auto& response = std::get<ResponseMessage>(r.value());
  EXPECT_EQ(response.id, "a");
  EXPECT_EQ(response.result, std::string_view(R"({"k":[1]})"));
  // The version word is required but not looked at; it always reads 2.0.
  EXPECT_EQ(response.jsonrpc, "2.0");
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

TEST(Classify, ErrorReplyWithAndWithoutId) {
  auto with_id = classify(R"({"jsonrpc":"2.0","id":"z","error":{"code":-32600,"category":"desktop_api","message":"x"}})");
  ASSERT_TRUE(with_id.has_value());
  const auto& e = std::get<ErrorMessage>(with_id.value());
  EXPECT_EQ(e.code, -32600);
  EXPECT_EQ(e.category, "desktop_api");
  EXPECT_EQ(e.message, "x");
  EXPECT_EQ(e.id, "z");

  auto without = classify(R"({"jsonrpc":"2.0","error":{"code":1,"category":"desktop_api","message":"x"}})");
  ASSERT_TRUE(without.has_value());
  EXPECT_FALSE(std::get<ErrorMessage>(without.value()).id.has_value());
  auto null_id = classify(R"({"jsonrpc":"2.0","id":null,"error":{"code":1,"category":"desktop_api","message":"x"}})");
  ASSERT_TRUE(null_id.has_value());
  EXPECT_FALSE(std::get<ErrorMessage>(null_id.value()).id.has_value());
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

TEST(Classify, TrailingWhiteSpaceAndNullResultAreAccepted) {
  auto r = classify(" {\"jsonrpc\":\"2.0\",\"id\":\"a\",\"result\":null} \n\t");
  ASSERT_TRUE(r.has_value());
  EXPECT_EQ(std::get<ResponseMessage>(r.value()).result, std::string_view("null"));
}

}  // namespace
