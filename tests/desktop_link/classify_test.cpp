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
using orvanta::link::Result;

Result<ClassifiedMessage> classify(std::string_view text) { return classify_message(text.data(), text.size()); }

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
}

// A null id is no id. The members of an error reply, and the params of a
// notification, are read by the request and notification tests.
TEST(Classify, ErrorReplyWithAndWithoutId) {
  const struct {
    const char* id_member;
    std::optional<std::string> id;
  } rows[] = {{R"("id":"z",)", "z"}, {"", std::nullopt}, {R"("id":null,)", std::nullopt}};
  for (const auto& row : rows) {
    auto r = classify(std::string(R"({"jsonrpc":"2.0",)") + row.id_member +
                      R"("error":{"code":-32600,"category":"desktop_api","message":"x"}})");
    ASSERT_TRUE(r.has_value()) << row.id_member;
    EXPECT_EQ(std::get<ErrorMessage>(r.value()).id, row.id) << row.id_member;
  }
}

// The envelope's own refusals (version word, id types, trailing text) are
// its record's, pinned in tests/messages; these are the sorting rule's.
TEST(Classify, RefusedTexts) {
  for (std::string_view text : {
           "",
           R"({"jsonrpc":"2.0","result":{}})",  // result without id
           R"({"jsonrpc":"2.0","id":"a"})",     // no kind at all
       }) {
    auto r = classify(text);
    EXPECT_FALSE(r.has_value()) << text;
    EXPECT_EQ(r.error(), std::errc::bad_message) << text;
  }
}

}  // namespace
