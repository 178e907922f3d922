// A settings store in memory.
#pragma once

#include <map>
#include <string>
#include <tuple>

#include "platform/settings_store.h"
#include "platform/simulated/doorway.h"

namespace nerolith::platform::simulated {

/// Trace: "settings.write APPLICATION/SECTION/KEY=TEXT"; reading: "settings.read ...".
class SimulatedSettings : public SettingsStore {
 public:
  explicit SimulatedSettings(Doorway& doorway) : doorway_(doorway) {}

  std::optional<std::string> read(const std::string& application, const std::string& section,
                                  const std::string& key) const override {
    doorway_.look({Door::Settings, "settings", "read", application + "/" + section + "/" + key});
    return stored(application, section, key);
  }

  void write(const std::string& application, const std::string& section, const std::string& key,
             const std::string& text) override {
    doorway_.act({Door::Settings, "settings", "write",
                  application + "/" + section + "/" + key + "=" + text});
    set(application, section, key, text);
  }

  // Scripting, without a door call.
  void set(const std::string& application, const std::string& section, const std::string& key,
           const std::string& text) {
    texts_[{application, section, key}] = text;
  }
  std::optional<std::string> stored(const std::string& application, const std::string& section,
                                    const std::string& key) const {
    const auto found = texts_.find({application, section, key});
    if (found == texts_.end()) return std::nullopt;
    return found->second;
  }
  void clear() { texts_.clear(); }
  std::size_t size() const { return texts_.size(); }

 private:
  Doorway& doorway_;
  std::map<std::tuple<std::string, std::string, std::string>, std::string> texts_;
};

}  // namespace nerolith::platform::simulated
