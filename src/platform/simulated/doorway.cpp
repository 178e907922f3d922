#include "platform/simulated/doorway.h"

#include <algorithm>

#include "platform/failure.h"

namespace nerolith::platform::simulated {
namespace {

constexpr int kInjected = -1;

template <typename Entries, typename Wanted>
std::string joined(const Entries& entries, Wanted wanted) {
  std::string text;
  for (const auto& entry : entries) {
    if (!wanted(entry)) continue;
    if (!text.empty()) text += " | ";
    text += entry.text;
  }
  return text;
}

}  // namespace

void Doorway::act(const Call& call) {
  write(call, false);
  count(call);
}

void Doorway::note(const Call& call) { write(call, false); }

void Doorway::look(const Call& call) {
  write(call, true);
  count(call);
}

void Doorway::refuse(const std::string& text, int code) {
  if (written_) entries_.back().text += " failed";
  throw Failure(text, code);
}

std::string Doorway::trace() const {
  return joined(entries_, [](const Entry&) { return true; });
}

std::string Doorway::trace(std::initializer_list<Door> doors) const {
  return joined(entries_, [&](const Entry& entry) {
    return std::find(doors.begin(), doors.end(), entry.door) != doors.end();
  });
}

void Doorway::write(const Call& call, bool reading) {
  written_ = recording_ && (!reading || readings_);
  if (!written_) return;
  std::string text;
  text.append(call.who).append(".").append(call.verb);
  if (!call.argument.empty()) text.append(" ").append(call.argument);
  entries_.push_back({call.door, std::move(text)});
}

void Doorway::count(const Call& call) {
  if (++calls_ != failAt_) return;
  failAt_ = 0;
  ++faults_;
  refuse("A fault was asked for: " + std::string(call.who) + "." + std::string(call.verb),
         kInjected);
}

}  // namespace nerolith::platform::simulated
