#include "platform/linux/widgets/qt_picture_loader.h"

#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <cstring>

#include "platform/failure.h"

namespace nerolith::widgets {
namespace {

constexpr QSize kLargest{3840, 2160};

}  // namespace

controls::Picture QtPictureLoader::load(const std::string& path) const {
  QFile file(QFile::decodeName(path.c_str()));
  QImageReader reader(&file);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  if (size.width() > kLargest.width() || size.height() > kLargest.height())
    reader.setScaledSize(size.scaled(kLargest, Qt::KeepAspectRatio));
  const QImage image = reader.read().convertToFormat(QImage::Format_RGB32);
  if (image.isNull())
    throw platform::Failure("The picture \"" + path +
                            "\" cannot be read: " + reader.errorString().toStdString());
  controls::Picture picture;
  picture.width = image.width();
  picture.height = image.height();
  picture.pixels.resize(static_cast<std::size_t>(image.width()) *
                        static_cast<std::size_t>(image.height()));
  const auto row = static_cast<std::size_t>(image.width());
  for (int y = 0; y < image.height(); ++y)
    std::memcpy(picture.pixels.data() + static_cast<std::size_t>(y) * row, image.constScanLine(y),
                row * sizeof(std::uint32_t));
  return picture;
}

}  // namespace nerolith::widgets
