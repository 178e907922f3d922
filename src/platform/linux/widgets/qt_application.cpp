#include "platform/linux/widgets/qt_application.h"

#include <QStyleFactory>

#include "platform/linux/widgets/accessible_roles.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

QtApplication::Beforehand::Beforehand() {
  // Nothing here draws with OpenGL; looking for it costs a good part of the start.
  if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION")) qputenv("QT_XCB_GL_INTEGRATION", "none");
  QApplication::setDesktopSettingsAware(true);
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QCoreApplication::setApplicationName(QStringLiteral("velmarion"));
  QGuiApplication::setDesktopFileName(QStringLiteral("velmarion"));
}

QtApplication::QtApplication(int& argc, char** argv) : application_(argc, argv) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
  QApplication::setPalette(theme::palette());
  QApplication::setQuitOnLastWindowClosed(false);
  tellRolesToScreenReaders();
}

int QtApplication::run() { return QApplication::exec(); }

}  // namespace nerolith::widgets
