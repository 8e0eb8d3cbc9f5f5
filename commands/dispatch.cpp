#include "commands/dispatch.hpp"

#include "commands/content.hpp"
#include "commands/devices.hpp"
#include "commands/folder.hpp"
#include "commands/library.hpp"
#include "commands/library_batch.hpp"
#include "commands/playback.hpp"
#include "commands/playlist.hpp"
#include "commands/pod.hpp"
#include "commands/pod_timeline.hpp"
#include "commands/queue.hpp"
#include "commands/rondo.hpp"

namespace orvanta::commands {

int dispatch_command(const cli::CommandLine& line, Context& context) {
  using cli::CommandId;
  switch (line.command()) {
    case CommandId::Status: return status(line, context);
    case CommandId::Resume: return resume(context);
    case CommandId::Pause: return pause(context);
    case CommandId::Play: return play(line, context);
    case CommandId::Next: return next(context);
    case CommandId::Previous: return previous(context);
    case CommandId::Seek: return seek(line, context);
    case CommandId::Shuffle: return shuffle(line.argument(), context);
    case CommandId::Repeat: return repeat(line.argument(), context);
    case CommandId::Speed: return speed(line.argument(), context);
    case CommandId::Volume: return volume(line.argument(), context);
    case CommandId::Me: return me(context);
    case CommandId::Search: return search(line, context);
    case CommandId::Lookup: return lookup(line, context);
    case CommandId::Taste: return taste(line, context);
    case CommandId::HistoryTop: return history_top(line, context);
    case CommandId::HistoryRecent: return history_recent(line, context);
    case CommandId::NowPlaying: return now_playing(line, context);
    case CommandId::DevicesList: return devices_list(line, context);
    case CommandId::DevicesTransfer: return devices_transfer(line.argument(), context);
    case CommandId::DevicesVolume: return devices_volume(line, context);
    case CommandId::DevicesInfo: return devices_info(line.argument(), context);
    case CommandId::LibraryList: return library_list(line, context);
    case CommandId::LibraryContains: return library_contains(line, context);
    case CommandId::LibraryAdd: return library_add(line, context);
    case CommandId::LibraryRemove: return library_remove(line, context);
    case CommandId::LibraryBatch: return library_batch(line, context);
    case CommandId::PlaylistGet: return playlist_get(line, context);
    case CommandId::PlaylistCreate: return playlist_create(line, context);
    case CommandId::PlaylistUpdate: return playlist_update(line, context);
    case CommandId::PlaylistAdd: return playlist_add(line, context);
    case CommandId::PlaylistRemove: return playlist_remove(line, context);
    case CommandId::FolderList: return folder_list(line, context);
    case CommandId::FolderCreate: return folder_create(line, context);
    case CommandId::FolderRename: return folder_rename(line, context);
    case CommandId::FolderMove: return folder_move(line, context);
    case CommandId::FolderRemove: return folder_remove(line, context);
    case CommandId::QueueList: return queue_list(line, context);
    case CommandId::QueueAdd: return queue_add(line.argument(), context);
    case CommandId::QueueRemove: return queue_remove(line, context);
    case CommandId::QueueMove: return queue_move(line, context);
    case CommandId::RondoStatus: return rondo_status(line, context);
    case CommandId::RondoCreate: return rondo_create(context);
    case CommandId::RondoLeave: return rondo_leave(context);
    case CommandId::RondoEnd: return rondo_end(context);
    case CommandId::RondoMembers: return rondo_members(line, context);
    case CommandId::RondoKick: return rondo_kick(line.argument(), context);
    case CommandId::RondoPermissions: return rondo_permissions(line, context);
    case CommandId::PodUpload: return pod_upload(line, context);
    case CommandId::PodShows: return pod_shows(line, context);
    case CommandId::PodShowsCreate: return pod_shows_create(line, context);
    case CommandId::PodShowsDelete: return pod_shows_delete(line, context);
    case CommandId::PodEpisodes: return pod_episodes(line, context);
    case CommandId::PodEpisodesCreate: return pod_episodes_create(line, context);
    case CommandId::PodEpisodesStatus: return pod_episodes_status(line, context);
    case CommandId::PodEpisodesDelete: return pod_episodes_delete(line, context);
    case CommandId::PodTimelineGet: return pod_timeline_get(line, context);
    case CommandId::PodTimelineSet: return pod_timeline_set(line, context);
    case CommandId::PodTimelineDelete: return pod_timeline_delete(line, context);
    default: return 1;
  }
}

}  // namespace orvanta::commands
