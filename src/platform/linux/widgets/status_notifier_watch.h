// Looks for a desktop that shows status notifier items.
#pragma once

#include <QObject>
#include <functional>

namespace nerolith::widgets {

/// Asks the user's message bus for org.kde.StatusNotifierWatcher and follows it and its hosts.
/// Never waits for an answer: until the first one has come, or two seconds have passed, nothing is
/// known. Without a bus there is no host, and that is known at once.
class StatusNotifierWatch : public QObject {
  Q_OBJECT

 public:
  /// `changed` is called when one of the following answers becomes another.
  explicit StatusNotifierWatch(std::function<void()> changed);

  bool known() const { return known_; }
  bool hostPresent() const { return hostPresent_; }

 private slots:
  void ask();

 private:  // NOLINT(readability-redundant-access-specifiers): not to the generator of slots
  void learn(bool hostPresent);

  std::function<void()> changed_;
  bool known_ = false;
  bool hostPresent_ = false;
};

}  // namespace nerolith::widgets
