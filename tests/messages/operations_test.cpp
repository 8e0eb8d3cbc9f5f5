#include "messages/operations.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace orvanta::messages;

// The wire names, in the catalogue's order, written from the method table.
TEST(OperationCatalogue, MethodNamesInOrder) {
  const std::vector<std::string_view> expected = {
      "connect_login", "get_username_hash", "tk_message_auth_policy", "playback_pause", "playback_resume",
      "playback_play", "playback_next", "playback_previous", "playback_seek", "playback_shuffle", "playback_repeat",
      "playback_speed", "playback_volume", "ble_state_subscription", "connect_active_device_subscription", "search",
      "lookup", "me", "taste_profile", "history_top", "history_recent", "now_playing", "agent_bootstrap",
      "agent_online_state", "ask", "web_search", "ai_completions", "ai_completions_stream", "ai_images",
      "tts_synthesize", "tts_voices", "ai_messages", "ai_messages_stream", "telemetry_sandbox", "pod_upload",
      "pod_shows_list", "pod_shows_create", "pod_shows_delete", "pod_episodes_list", "pod_episodes_create",
      "pod_episodes_status", "pod_episodes_delete", "pod_timeline_get", "pod_timeline_set", "pod_timeline_delete",
      "connect_cluster", "connect_transfer", "connect_set_volume", "connect_device_info", "chat_list", "chat_read",
      "chat_send", "chat_subscribe", "library_list", "library_contains", "library_add", "library_remove",
      "playlist_get", "playlist_create", "playlist_update", "playlist_add_tracks", "playlist_remove_tracks",
      "folder_list", "folder_create", "folder_rename", "folder_move", "folder_remove", "queue_list", "queue_add",
      "queue_remove", "queue_move", "rondo_status", "rondo_create", "rondo_leave", "rondo_end", "rondo_kick",
      "rondo_permissions", "browser_new", "browser_list", "browser_close", "browser_snapshot", "browser_navigate",
      "browser_click", "browser_type", "browser_scroll", "browser_evaluate", "permissions_grant",
      "permissions_current", "permissions_subscribe", "permissions_resolve", "show_toast", "collect_logs_subscription",
      // Made only by the connection itself.
      "login_state_subscription", "authorize_connection",
  };
  std::vector<std::string_view> actual;
  for_each_operation([&]<class Op>(std::type_identity<Op>) { actual.push_back(Op::name); });
  EXPECT_EQ(actual, expected);
}

}  // namespace
