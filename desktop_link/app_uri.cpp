#include "desktop_link/app_uri.hpp"

#include <algorithm>

namespace orvanta::link {
namespace {

bool has_uri_prefix(const std::string& arg) {
  return arg.compare(0, kUriArgumentPrefix.size(), kUriArgumentPrefix) == 0;
}

std::string tag_with_medium(std::string_view uri, std::string_view medium) {
  return add_query_parameter(remove_query_parameter(uri, kMediumQueryKey), kMediumQueryKey, medium);
}

}  // namespace

std::string add_query_parameter(std::string_view uri, std::string_view key, std::string_view value) {
  auto question = uri.find('?');
  std::string_view base = uri.substr(0, question);
  std::string_view query = question == std::string_view::npos ? std::string_view{} : uri.substr(question + 1);

  std::string result(base);
  result += '?';
  result += query;
  if (!query.empty()) result += '&';
  result += key;
  result += '=';
  result += value;
  return result;
}

std::string remove_query_parameter(std::string_view uri, std::string_view key) {
  auto question = uri.find('?');
  if (question == std::string_view::npos) return std::string(uri);

  std::string_view query = uri.substr(question + 1);
  std::vector<std::string_view> kept;
  while (true) {
    auto amp = query.find('&');
    std::string_view pair = query.substr(0, amp);
    if (pair.substr(0, pair.find('=')) != key) kept.push_back(pair);
    if (amp == std::string_view::npos) break;
    query.remove_prefix(amp + 1);
  }

  std::string result(uri.substr(0, question));
  for (std::size_t i = 0; i < kept.size(); ++i) {
    result += i == 0 ? '?' : '&';
    result += kept[i];
  }
  return result;
}

std::string apply_uri(std::vector<std::string>& args, std::string_view medium, bool strip) {
  std::string uri = add_query_parameter(kDefaultAppUri, kMediumQueryKey, medium);

  if (std::none_of(args.begin(), args.end(), has_uri_prefix)) {
    if (!strip) args.push_back(std::string(kUriArgumentPrefix) + uri);
    return uri;
  }

  for (auto& arg : args) {
    if (!has_uri_prefix(arg)) continue;
    uri = tag_with_medium(std::string_view(arg).substr(kUriArgumentPrefix.size()), medium);
    if (!strip) arg = std::string(kUriArgumentPrefix) + uri;
  }
  if (strip) std::erase_if(args, has_uri_prefix);
  return uri;
}

}  // namespace orvanta::link
