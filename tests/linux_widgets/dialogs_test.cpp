#include "platform/linux/widgets/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "contracts/dialogs_contract.h"
#include "platform/linux/widgets/message_dialog.h"
#include "platform/linux/widgets/product_icon.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

using platform::Answer;
using platform::MessageButtons;
using platform::MessageIcon;

/// Does something to the next dialog that comes up, once it has come up.
class Visitor {
 public:
  explicit Visitor(std::function<bool(QWidget&)> visit) {
    QObject::connect(&look_, &QTimer::timeout, &look_, [this, visit = std::move(visit)] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (dialog && dialog->isVisible() && visit(*dialog)) look_.stop();
    });
    look_.start(5);
  }

 private:
  QTimer look_;
};

QPushButton* buttonOf(const QWidget& dialog, const QString& caption) {
  for (auto* button : dialog.findChildren<QPushButton*>())
    if (QString(button->text()).remove(QLatin1Char('&')) == caption) return button;
  return nullptr;
}

Answer answered(const platform::Message& message, std::function<void(QWidget&)> byUser) {
  const Visitor visitor([&](QWidget& dialog) {
    byUser(dialog);
    return true;
  });
  return QtDialogs().showMessage(message);
}

void pressKey(QWidget& dialog, Qt::Key key) {
  QTest::keyClick(dialog.focusWidget() ? dialog.focusWidget() : &dialog, key);
}

platform::Message question(Answer preset) {
  return {"Delete the selected songs?", MessageIcon::Information, MessageButtons::YesNo, preset};
}

TEST(MessageBox, EnterPressesThePresetButton) {
  const auto enter = [](QWidget& dialog) { pressKey(dialog, Qt::Key_Return); };
  EXPECT_EQ(answered(question(Answer::Yes), enter), Answer::Yes);
  EXPECT_EQ(answered(question(Answer::No), enter), Answer::No);
  EXPECT_EQ(answered({"Error playing selected file", MessageIcon::Critical}, enter), Answer::Ok);
}

TEST(MessageBox, EscapeAndClosingAnswerNoWhereThereIsOne) {
  const auto escape = [](QWidget& dialog) { pressKey(dialog, Qt::Key_Escape); };
  const auto close = [](QWidget& dialog) { dialog.close(); };
  EXPECT_EQ(answered(question(Answer::Yes), escape), Answer::No);
  EXPECT_EQ(answered(question(Answer::Yes), close), Answer::No);
  EXPECT_EQ(answered({"Error playing selected file"}, escape), Answer::Ok);
}

TEST(MessageBox, AClickAnswersAndSoDoesTheAccessKey) {
  EXPECT_EQ(
      answered(question(Answer::No),
               [](QWidget& dialog) { QTest::mouseClick(buttonOf(dialog, "Yes"), Qt::LeftButton); }),
      Answer::Yes);
  EXPECT_EQ(answered(question(Answer::Yes),
                     [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_N, Qt::AltModifier); }),
            Answer::No);
}

TEST(MessageBox, ArrowsMoveToTheOtherButtonAndEnterPressesIt) {
  EXPECT_EQ(answered(question(Answer::Yes),
                     [](QWidget& dialog) {
                       pressKey(dialog, Qt::Key_Right);
                       pressKey(dialog, Qt::Key_Return);
                     }),
            Answer::No);
}

TEST(MessageBox, IsDarkAndTellsScreenReadersItsText) {
  answered({"Velmarion.exe [filename] [1,2,3]"}, [](QWidget& dialog) {
    EXPECT_EQ(dialog.accessibleDescription(), "Velmarion.exe [filename] [1,2,3]");
    const QImage seen = dialog.grab().toImage();
    EXPECT_LT(seen.pixelColor(3, seen.height() / 2).lightness(), 70);
    ASSERT_EQ(dialog.findChildren<QLabel*>().size(), 1);
    EXPECT_EQ(dialog.findChild<QLabel*>()->x(), dialog.layout()->contentsMargins().left());
    dialog.close();
  });
}

TEST(MessageBox, LongTextWrapsInsteadOfLeavingTheScreen) {
  answered({std::string(60, 'w') + " " + std::string(60, 'w')}, [](QWidget& dialog) {
    EXPECT_LT(dialog.width(), 500);
    EXPECT_GT(dialog.findChild<QLabel*>()->height(), dialog.fontMetrics().height() * 2 - 6);
    dialog.close();
  });
}

TEST(FileQuestions, AreAskedInTheDarkColours) {
  const Visitor visitor([](QWidget& dialog) {
    EXPECT_EQ(dialog.palette().color(QPalette::Base), theme::kWell);
    EXPECT_LT(dialog.grab().toImage().pixelColor(4, 4).lightness(), 70);
    dialog.close();
    return true;
  });
  EXPECT_EQ(QtDialogs().openFile({"Open playlist", "*.m3u|*.m3u", ""}), std::nullopt);
}

TEST(ProductIcon, IsDrawnInEverySizeAndClearAroundItsCorners) {
  for (const int side : {16, 48}) {
    const QImage seen = productIcon(side).toImage();
    EXPECT_EQ(seen.size(), QSize(side, side));
    EXPECT_EQ(qAlpha(seen.pixel(0, 0)), 0);
    EXPECT_GT(seen.pixelColor(side / 2, side * 17 / 32).red(), 150) << "the lamp";
  }
}

/// The user of the contract.
class QtDialogsBackend {
 public:
  platform::Dialogs& dialogs() { return dialogs_; }

  void userAnswers(Answer answer) {
    const QString caption = answer == Answer::Yes ? "Yes" : answer == Answer::No ? "No" : "OK";
    visitor_ = std::make_unique<Visitor>([caption](QWidget& dialog) {
      if (auto* button = buttonOf(dialog, caption)) button->click();
      return true;
    });
  }
  void userChooses(const std::string& path) {
    visitor_ = std::make_unique<Visitor>([path](QWidget& dialog) {
      auto* files = dynamic_cast<QFileDialog*>(&dialog);
      if (!files) return false;
      // The text that the dialog takes as the answer: choosing in a list that is still being read
      // does not always reach it.
      files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
          ->setText(QString::fromStdString(path));
      // The file is there already: yes, it may be written over.
      const Visitor confirming([](QWidget& asked) {
        auto* box = dynamic_cast<QMessageBox*>(&asked);
        if (box) box->button(QMessageBox::Yes)->click();
        return box != nullptr;
      });
      static_cast<QDialog*>(files)->accept();
      return !files->isVisible();
    });
  }
  void userCancels() {
    visitor_ = std::make_unique<Visitor>([](QWidget& dialog) {
      static_cast<QDialog&>(dialog).reject();
      return true;
    });
  }
  std::string somePath() {
    QFile file(folder_.filePath("evening.m3u"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    return file.fileName().toStdString();
  }

 private:
  QTemporaryDir folder_;
  QtDialogs dialogs_;
  std::unique_ptr<Visitor> visitor_;
};

}  // namespace
}  // namespace nerolith::widgets

namespace nerolith::contracts {
using widgets::QtDialogsBackend;
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, DialogsContract, QtDialogsBackend);
}  // namespace nerolith::contracts
