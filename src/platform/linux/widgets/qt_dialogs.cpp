#include "platform/linux/widgets/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>

#include "platform/linux/widgets/message_dialog.h"
#include "platform/linux/widgets/product_icon.h"

namespace nerolith::widgets {
namespace {

/// "description|pattern" pairs become "description (pattern)" lines; Qt splits patterns at blanks.
QStringList nameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    filters << parts[i] + QStringLiteral(" (") +
                   QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')) +
                   QStringLiteral(")");
  return filters;
}

std::optional<std::string> ask(const platform::FileQuestion& question,
                               QFileDialog::AcceptMode mode) {
  QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(question.title));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(mode);
  dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                     : QFileDialog::AnyFile);
  const QStringList filters = nameFilters(question.filter);
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  if (!question.askBeforeReplacing) dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setDefaultSuffix(QString::fromStdString(question.ending));
  dialog.selectFile(QString::fromStdString(question.fileName));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

}  // namespace

platform::Answer QtDialogs::showMessage(const platform::Message& message) {
  giveProductIcon();
  MessageDialog dialog(message, QApplication::activeWindow());
  dialog.exec();
  return dialog.answer();
}

std::optional<std::string> QtDialogs::openFile(const platform::FileQuestion& question) {
  return ask(question, QFileDialog::AcceptOpen);
}

std::optional<std::string> QtDialogs::saveFile(const platform::FileQuestion& question) {
  return ask(question, QFileDialog::AcceptSave);
}

}  // namespace nerolith::widgets
