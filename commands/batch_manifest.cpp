#include "commands/batch_manifest.hpp"

namespace orvanta::commands {

using json::presence::defaulted;
using json::presence::optional;
using json::presence::required;

json::ObjectCodec<BatchOp> batch_op_codec() {
  using R = BatchOp;
  json::ObjectCodec<R> codec;
  codec.add_field("op",                     required,  &R::op);
  codec.add_field("uris",                   defaulted, &R::uris);
  codec.add_field("track_uris",             defaulted, &R::track_uris);
  codec.add_field("positions",              defaulted, &R::positions);
  codec.add_field("playlist_uri",           optional,  &R::playlist_uri);
  codec.add_field("folder_uri",             optional,  &R::folder_uri);
  codec.add_field("destination_folder_uri", optional,  &R::destination_folder_uri);
  codec.add_field("parent_folder_uri",      optional,  &R::parent_folder_uri);
  codec.add_field("name",                   optional,  &R::name);
  codec.add_field("description",            optional,  &R::description);
  codec.add_field("image_file",             optional,  &R::image_file);
  codec.add_field("public",                 optional,  &R::is_public);
  codec.add_field("position",               optional,  &R::position);
  codec.add_field("keep_contents",          optional,  &R::keep_contents);
  return codec;
}

json::ObjectCodec<BatchManifest> batch_manifest_codec() {
  using R = BatchManifest;
  json::ObjectCodec<R> codec;
  codec.add_field("stop_on_error", defaulted, &R::stop_on_error);
  codec.add_field("ops",           required,  &R::ops, json::list_codec(batch_op_codec()));
  return codec;
}

json::ObjectCodec<BatchOpPayload> batch_op_payload_codec() {
  using R = BatchOpPayload;
  json::ObjectCodec<R> codec;
  codec.add_field("count",       optional, &R::count);
  codec.add_field("contains",    optional, &R::contains);
  codec.add_field("failed",      optional, &R::failed);
  codec.add_field("uri",         optional, &R::uri);
  codec.add_field("name",        optional, &R::name);
  codec.add_field("snapshot_id", optional, &R::snapshot_id);
  codec.add_field("added",       optional, &R::added);
  codec.add_field("removed",     optional, &R::removed);
  codec.add_field("moved",       optional, &R::moved);
  return codec;
}

json::ObjectCodec<BatchOpResult> batch_op_result_codec() {
  using R = BatchOpResult;
  json::ObjectCodec<R> codec;
  codec.add_field("index",   required, &R::index);
  codec.add_field("op",      required, &R::op);
  codec.add_field("ok",      required, &R::ok);
  codec.add_field("skipped", optional, &R::skipped);
  codec.add_field("error",   optional, &R::error);
  codec.add_field("result",  optional, &R::result, batch_op_payload_codec());
  return codec;
}

json::ObjectCodec<BatchSummary> batch_summary_codec() {
  using R = BatchSummary;
  json::ObjectCodec<R> codec;
  codec.add_field("summary", required, &R::summary);
  codec.add_field("total",   required, &R::total);
  codec.add_field("ok",      required, &R::ok);
  codec.add_field("failed",  required, &R::failed);
  codec.add_field("skipped", required, &R::skipped);
  return codec;
}

}  // namespace orvanta::commands
