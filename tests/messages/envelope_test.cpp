#include "messages/envelope.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/messages/wire_table.hpp"

namespace {

using namespace orvanta::messages;
using orvanta::json::RawJsonValue;
using orvanta::test::decode_outcome;
using orvanta::test::runner;
using orvanta::test::WireCase;

TEST(EnvelopeRecords, WireTable) {
  const WireCase cases[] = {
      {"RequestMessage", runner(request_message_codec),
       R"({"jsonrpc":"2.0","method":"playback_seek","params":{"position_ms":5},"id":"r1"})", "method params", "",
       "id"},
      {"ErrorObject", runner(error_object_codec), R"({"code":-32600,"category":"desktop_api","message":"x"})",
       "code category message"},
      {"IncomingMessage", runner(incoming_message_codec),
       R"({"jsonrpc":"2.0","id":"a","method":"m","params":[1,{"x":null}],"result":"text",)"
       R"("error":{"code":1,"category":"desktop_api","message":"x"}})",
       "jsonrpc", "", "method error"},
      // Raw values take any value, null included, so they get no null probe.
      {"IncomingMessage (result)", runner(incoming_message_codec), R"({"jsonrpc":"2.0","id":"a","result":{}})"},
      {"EmptyRequest", runner(empty_request_codec), "{}"},
      {"EmptyResponse", runner(empty_response_codec), "{}"},
      {"HelloRequest", runner(hello_request_codec),
       R"({"client_id":"c","name":"orvanta_cli","version":"1.2.93","feature_identifier":"partner_api_client"})",
       "client_id name version", "", "feature_identifier"},
      {"HelloResponse", runner(hello_response_codec),
       R"({"orvanta_app_version":"1.2.3","sends_complete_notification":false})", "orvanta_app_version", "",
       "sends_complete_notification"},
  };
  orvanta::test::check_wire_table(cases);
}

// Members of one type hold different values, so a key bound to the wrong
// member shows.
TEST(EnvelopeRecords, DecodedMembers) {
  EXPECT_EQ(orvanta::json::decode(error_object_codec(), R"({"code":-32600,"category":"desktop_api","message":"x"})"),
            (ErrorObject{-32600, "desktop_api", "x"}));
  const IncomingMessage message = orvanta::json::decode(
      incoming_message_codec(),
      R"({"jsonrpc":"2.0","id":"a","method":"m","params":[1],"result":{},"error":{"code":1,"category":"c","message":"t"}})");
  EXPECT_EQ(message.jsonrpc, "2.0");
  EXPECT_EQ(message.id, "a");
  EXPECT_EQ(message.method, "m");
  EXPECT_EQ(message.params, RawJsonValue("[1]"));
  EXPECT_EQ(message.result, RawJsonValue("{}"));
  EXPECT_EQ(message.error, (ErrorObject{1, "c", "t"}));
}

TEST(EnvelopeRecords, ParamsTextIsCopiedAsItStands) {
  HelloRequest hello;
  hello.client_id = "c\"1";
  hello.name = "n";
  hello.version = "v";
  EXPECT_EQ(encode_request("authorize_connection", hello_request_codec(), hello, "i"),
            R"({"jsonrpc":"2.0","method":"authorize_connection",)"
            R"("params":{"client_id":"c\"1","name":"n","version":"v"},"id":"i"})");
  EXPECT_EQ(encode_request_message("m", RawJsonValue(R"({ "kept" : [1, 2] })"), "i"),
            R"({"jsonrpc":"2.0","method":"m","params":{ "kept" : [1, 2] },"id":"i"})");
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
      // Keys we don't know are skipped, but must still be well formed.
      {R"({"jsonrpc":"2.0","extra":{"a":[true,null]},"id":"a","result":{}})", "ok"},
      {R"({"jsonrpc":"2.0","extra":"open)", "error: Unterminated string"},
      {R"({"jsonrpc":"2.0","result":{},} )", "error: Unexpected input"},
      {R"({"jsonrpc":"2.0"} x)", "error: Unexpected trailing input"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(decode_outcome(incoming_message_codec(), row.text), row.outcome) << row.text;
  }
}

TEST(EnvelopeRecords, IncomingKeepsRawTextAndNullResult) {
  const IncomingMessage message = orvanta::json::decode(
      incoming_message_codec(), R"({"jsonrpc":"2.0","id":null,"result":null,"params": [ 1 ,2 ] })");
  EXPECT_FALSE(message.id.has_value());
  ASSERT_TRUE(message.result.has_value());  // `null` counts as present
  EXPECT_EQ(message.result->view(), "null");
  ASSERT_TRUE(message.params.has_value());
  EXPECT_EQ(message.params->view(), "[ 1 ,2 ]");
  EXPECT_FALSE(message.method.has_value());
  EXPECT_FALSE(message.error.has_value());
}

TEST(EnvelopeRecords, SecondStage) {
  EmptyResponse empty;
  EXPECT_TRUE(decode_raw(empty_response_codec(), RawJsonValue("{}"), empty));
  EXPECT_TRUE(decode_raw(empty_response_codec(), RawJsonValue(R"({"anything":[1,{"x":2}]})"), empty));
  // A result of null on a method without a result record still fails here,
  // although the envelope around it decoded.
  EXPECT_FALSE(decode_raw(empty_response_codec(), RawJsonValue("null"), empty));
  EXPECT_FALSE(decode_raw(empty_response_codec(), RawJsonValue("[]"), empty));
  EXPECT_FALSE(decode_raw(empty_response_codec(), RawJsonValue("\"{}\""), empty));
  // A notification without params reads the text null.
  EXPECT_FALSE(decode_raw(empty_response_codec(), std::optional<RawJsonValue>(), empty));

  HelloResponse hello;
  hello.orvanta_app_version = "old";
  EXPECT_TRUE(decode_raw(hello_response_codec(),
                         RawJsonValue(R"({"orvanta_app_version":"1.2.3","new_key":{}})"), hello));
  EXPECT_EQ(hello, (HelloResponse{"1.2.3", std::nullopt}));
  // A failed second stage leaves the record untouched.
  EXPECT_FALSE(decode_raw(hello_response_codec(),
                          RawJsonValue(R"({"orvanta_app_version":"9","sends_complete_notification":null})"),
                          hello));
  EXPECT_EQ(hello.orvanta_app_version, "1.2.3");
}

}  // namespace
