// Browser windows. No browser runs: each window is a record whose page is a
// short text snapshot with two references, "e1" (a link) and "e2" (a box).
#include "sim/handlers.hpp"

#include <algorithm>

namespace orvanta::sim {

namespace {

constexpr std::int32_t default_width = 1280;
constexpr std::int32_t default_height = 800;

std::string snapshot_of(const m::BrowserListItem& b) {
  return "- document \"" + b.title + "\"\n  - link \"More\" [ref=e1]\n  - textbox \"Search\" [ref=e2]\n";
}

m::BrowserListItem* find_browser(SimState& state, std::int32_t id) {
  for (auto& browser : state.browsers) {
    if (browser.id == id) return &browser;
  }
  return nullptr;
}

Failure no_browser(std::int32_t id) {
  return fail(link::DesktopApiError::browser_not_found, "No browser window " + std::to_string(id));
}

Failure no_element(const std::string& ref) {
  return fail(link::DesktopApiError::element_ref_not_found, "No element " + ref + " on the page");
}

bool known_ref(const std::string& ref) { return ref == "e1" || ref == "e2"; }

void go_to(m::BrowserListItem& b, std::string url) {
  b.url = std::move(url);
  b.title = "Page at " + b.url;
}

}  // namespace

Answer<m::BrowserNewResponse> handle(m::BrowserNew, const m::BrowserNewRequest& r, Context& context) {
  SimState& state = context.state;
  m::BrowserListItem b;
  b.id = static_cast<std::int32_t>(state.next_id++);
  b.type = "page";
  go_to(b, r.title_or_url.empty() ? "about:blank" : r.title_or_url);
  b.viewport_width = r.width > 0 ? r.width : default_width;
  b.viewport_height = r.height > 0 ? r.height : default_height;
  b.created_by = "agent";
  state.browsers.push_back(b);
  return m::BrowserNewResponse{b.id, b.url, b.title, b.viewport_width, b.viewport_height, snapshot_of(b),
                               r.backend.empty() ? "sim" : r.backend};
}

Answer<m::BrowserListResponse> handle(m::BrowserList, const m::EmptyRequest&, Context& context) {
  return m::BrowserListResponse{.browsers = context.state.browsers};
}

Answer<m::BrowserCloseResponse> handle(m::BrowserClose, const m::BrowserCloseRequest& r, Context& context) {
  SimState& state = context.state;
  if (state.browsers.empty()) return no_browser(r.id.value_or(0));
  const std::int32_t id = r.id.value_or(state.browsers.back().id);
  if (find_browser(state, id) == nullptr) return no_browser(id);
  std::erase_if(state.browsers, [&](const m::BrowserListItem& b) { return b.id == id; });
  return m::BrowserCloseResponse{.id = id, .was_user_opened = false};
}

Answer<m::BrowserSnapshotResponse> handle(m::BrowserSnapshot, const m::BrowserSnapshotRequest& r, Context& context) {
  m::BrowserListItem* b = find_browser(context.state, r.id);
  if (b == nullptr) return no_browser(r.id);
  return m::BrowserSnapshotResponse{b->url, b->title, b->type, b->viewport_width, b->viewport_height, snapshot_of(*b)};
}

Answer<m::BrowserNavigateResponse> handle(m::BrowserNavigate, const m::BrowserNavigateRequest& r, Context& context) {
  m::BrowserListItem* b = find_browser(context.state, r.id);
  if (b == nullptr) return no_browser(r.id);
  if (r.url.empty()) return bad_request("Give a URL to open");
  go_to(*b, r.url);
  return m::BrowserNavigateResponse{b->url, b->title, b->type, b->viewport_width, b->viewport_height, snapshot_of(*b)};
}

Answer<m::BrowserClickResponse> handle(m::BrowserClick, const m::BrowserClickRequest& r, Context& context) {
  m::BrowserListItem* b = find_browser(context.state, r.id);
  if (b == nullptr) return no_browser(r.id);
  if (!known_ref(r.ref)) return no_element(r.ref);
  m::BrowserClickResponse response{.ref = r.ref, .element = r.ref == "e1" ? "link \"More\"" : "textbox \"Search\"",
                                   .navigated = r.ref == "e1", .url = {}, .title = {}, .snapshot = {}};
  if (response.navigated) {
    go_to(*b, b->url + "/more");
    response.url = b->url;
    response.title = b->title;
    response.snapshot = snapshot_of(*b);
  }
  return response;
}

Answer<m::BrowserTypeResponse> handle(m::BrowserType, const m::BrowserTypeRequest& r, Context& context) {
  m::BrowserListItem* b = find_browser(context.state, r.id);
  if (b == nullptr) return no_browser(r.id);
  if (r.ref != "e2") return r.ref == "e1" ? bad_request("Can't type into a link") : no_element(r.ref);
  m::BrowserTypeResponse response{.ref = r.ref, .element = "textbox \"Search\"", .submitted = r.submit, .url = {},
                                  .title = {}, .snapshot = {}};
  if (r.submit) {
    go_to(*b, b->url + "?q=" + r.text);
    response.url = b->url;
    response.title = b->title;
    response.snapshot = snapshot_of(*b);
  }
  return response;
}

Answer<m::BrowserScrollResponse> handle(m::BrowserScroll, const m::BrowserScrollRequest& r, Context& context) {
  m::BrowserListItem* b = find_browser(context.state, r.id);
  if (b == nullptr) return no_browser(r.id);
  if (!r.ref.empty() && !known_ref(r.ref)) return no_element(r.ref);
  return m::BrowserScrollResponse{b->url, b->title, b->viewport_width, b->viewport_height, snapshot_of(*b)};
}

Answer<m::BrowserEvaluateResponse> handle(m::BrowserEvaluate, const m::BrowserEvaluateRequest& r, Context& context) {
  m::BrowserListItem* b = find_browser(context.state, r.id);
  if (b == nullptr) return no_browser(r.id);
  if (r.expression == "document.title") return m::BrowserEvaluateResponse{.result = "\"" + b->title + "\""};
  if (r.expression == "location.href") return m::BrowserEvaluateResponse{.result = "\"" + b->url + "\""};
  return m::BrowserEvaluateResponse{.result = "undefined"};
}

}  // namespace orvanta::sim
