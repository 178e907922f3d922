// The main form on a window, with songs in it, for the tests of what is seen and done there.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <string>
#include <vector>

#include "base/failure.h"
#include "forms/main_form.h"
#include "platform/linux/widgets/form_window.h"
#include "platform/linux/widgets/qt_window_host.h"

namespace nerolith::widgets {

/// The first widget of a kind below `root` that `fits`; a kind need not be known to the toolkit.
template <typename Widget>
Widget* findWidget(const QWidget& root, auto fits) {
  for (QWidget* child : root.findChildren<QWidget*>())
    if (auto* widget = dynamic_cast<Widget*>(child); widget && fits(*widget)) return widget;
  return nullptr;
}
template <typename Widget>
Widget* findWidget(const QWidget& root) {
  return findWidget<Widget>(root, [](const Widget&) { return true; });
}
template <typename Widget>
Widget* findNamed(const QWidget& root, const QString& name) {
  return findWidget<Widget>(root, [&](const Widget& w) { return w.accessibleName() == name; });
}

/// Remembers what was raised, in order.
class Heard {
 public:
  template <typename... Args>
  void on(base::Signal<Args...>& signal, const std::string& word) {
    subscriptions_.push_back(signal.subscribe([this, word](Args...) { words_.push_back(word); }));
  }
  std::string all() const {
    std::string text;
    for (const std::string& word : words_) text += (text.empty() ? "" : " ") + word;
    return text;
  }
  int count() const { return static_cast<int>(words_.size()); }

 private:
  std::vector<std::string> words_;
  std::vector<base::Subscription> subscriptions_;
};

class ShownForm : public testing::Test {
 protected:
  void SetUp() override {
    form.List1.setItems({"a.mp3", "b.mp3", "c.mp3", "d.mp3", "e.mp3", "f.mp3"});
    host.add(form.form);
    form.form.setVisible(true);
    window = host.windowOf(form.form);
    ASSERT_NE(window, nullptr);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window, 2000));
    QCoreApplication::processEvents();
  }

  template <typename Widget>
  Widget& widget(const QString& name) {
    auto* found = findNamed<Widget>(*window, name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return *found;
  }

  forms::MainForm form;
  QtWindowHost host;
  FormWindow* window = nullptr;
  Heard heard;
};

}  // namespace nerolith::widgets
