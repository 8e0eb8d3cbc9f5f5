#include "messages/envelope.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "record_check.hpp"

namespace {

using namespace orvanta::messages;
using orvanta::json::RawJsonValue;
using orvanta::test::decode_outcome;
using orvanta::test::runner;
using orvanta::test::WireCase;

TEST(EnvelopeRecords, WireTable) {
  const WireCase cases[] = {
      {"ErrorObject", runner(error_object_codec), R"({"code":-32600,"category":"desktop_api","message":"x"})",
       "code category message"},
      {"IncomingMessage", runner(incoming_message_codec),
       R"({"jsonrpc":"2.0","id":"a","method":"m","params":[1,{"x":null}],"result":"text",)"
       R"("error":{"code":1,"category":"desktop_api","message":"x"}})", "jsonrpc"},
      {"HelloResponse", runner(hello_response_codec),
       R"({"orvanta_app_version":"1.2.3","sends_complete_notification":false})", "orvanta_app_version"},
  };
  orvanta::test::check_wire_table(cases);
}

// Members of one type hold different values, so a key bound to the wrong
// member shows; raw members keep their text as it stands, and a `null`
// result counts as present.
TEST(EnvelopeRecords, DecodedMembers) {
  EXPECT_EQ(orvanta::json::decode(error_object_codec(), R"({"code":-32600,"category":"desktop_api","message":"x"})"),
            (ErrorObject{-32600, "desktop_api", "x"}));
  const IncomingMessage message = orvanta::json::decode(
      incoming_message_codec(),
      R"({"jsonrpc":"2.0","id":"a","method":"m","params": [ 1 ,2 ] ,"result":{},)"
      R"("error":{"code":1,"category":"c","message":"t"}})");
  EXPECT_EQ(message, (IncomingMessage{"2.0", "a", "m", RawJsonValue("[ 1 ,2 ]"), RawJsonValue("{}"),
                                      ErrorObject{1, "c", "t"}}));
  const IncomingMessage null_result =
      orvanta::json::decode(incoming_message_codec(), R"({"jsonrpc":"2.0","id":null,"result":null})");
  EXPECT_EQ(null_result,
            (IncomingMessage{"2.0", std::nullopt, std::nullopt, std::nullopt, RawJsonValue("null"), std::nullopt}));
}

// The params text is copied as it stands; without an id there is no "id".
TEST(EnvelopeRecords, RequestBytes) {
  EXPECT_EQ(encode_request_message("m", RawJsonValue(R"({ "kept" : [1, 2] })"), "i"),
            R"({"jsonrpc":"2.0","method":"m","params":{ "kept" : [1, 2] },"id":"i"})");
  EXPECT_EQ(encode_request("me", empty_request_codec(), EmptyRequest{}, std::nullopt),
            R"({"jsonrpc":"2.0","method":"me","params":{}})");
}

TEST(EnvelopeRecords, IncomingDecodes) {
  const struct {
    const char* text;
    const char* outcome;
  } rows[] = {
      // The version word is required but not checked.
      {R"({"jsonrpc":"1.0","id":"a","result":{}})", "ok"},
      {R"({"id":"a","result":{}})", "error: Missing required field(s)"},
      // The id is a string or null, never a number.
      {R"({"jsonrpc":"2.0","id":1,"result":{}})", "error: Unexpected input"},
      {R"({"jsonrpc":"2.0","id":null,"result":{}})", "ok"},
      // `error` is a record and never null.
      {R"({"jsonrpc":"2.0","error":null})", "error: Unexpected input"},
      {R"({"jsonrpc":"2.0","error":{"code":1,"category":"desktop_api"}})", "error: Missing required field(s)"},
      {R"({"jsonrpc":"2.0","error":{"code":"1","category":"c","message":"m"}})", "error: Invalid integer"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(decode_outcome(incoming_message_codec(), row.text), row.outcome) << row.text;
  }
}

TEST(EnvelopeRecords, SecondStage) {
  EmptyResponse empty;
  EXPECT_TRUE(decode_raw(empty_response_codec(), RawJsonValue("{}"), empty));
  // A result of null on a method without a result record still fails here,
  // although the envelope around it decoded.
  EXPECT_FALSE(decode_raw(empty_response_codec(), RawJsonValue("null"), empty));
  // A notification without params reads the text null.
  EXPECT_FALSE(decode_raw(empty_response_codec(), std::optional<RawJsonValue>(), empty));
}

}  // namespace
