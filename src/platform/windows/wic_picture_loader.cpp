#include "platform/windows/wic_picture_loader.h"

#include <windows.h>
// After windows.h, which it needs.
#include <wincodec.h>

#include <algorithm>
#include <cmath>

#include "platform/windows/failure_text.h"
#include "platform/windows/file_path.h"
#include "platform/windows/handles.h"

namespace nerolith::windows {
namespace {

constexpr UINT kLargestWidth = 3840, kLargestHeight = 2160;

struct Size {
  UINT width = 0, height = 0;
};

Size reduced(Size size) {
  const double scale = std::min({1.0, static_cast<double>(kLargestWidth) / size.width,
                                 static_cast<double>(kLargestHeight) / size.height});
  const auto side = [scale](UINT length) {
    return std::max(1u, static_cast<UINT>(std::lround(length * scale)));
  };
  return {side(size.width), side(size.height)};
}

/// The steps from a file to pixels, each on top of the one before.
class Decoding {
 public:
  explicit Decoding(const std::string& path) : what_("The picture \"" + path + "\"") {
    check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           IID_IWICImagingFactory, factory_.outVoid()));
    check(factory_->CreateDecoderFromFilename(systemPath(tidyPath(path, {})).c_str(), nullptr,
                                              GENERIC_READ, WICDecodeMetadataCacheOnDemand,
                                              decoder_.out()));
    check(decoder_->GetFrame(0, frame_.out()));
  }

  controls::Picture picture() {
    Size size;
    check(frame_->GetSize(&size.width, &size.height));
    if (size.width == 0 || size.height == 0) throwFailure(what_, ERROR_INVALID_DATA);
    const Size target = reduced(size);
    check(factory_->CreateBitmapScaler(scaler_.out()));
    check(scaler_->Initialize(frame_.get(), target.width, target.height,
                              WICBitmapInterpolationModeFant));
    check(factory_->CreateFormatConverter(converter_.out()));
    check(converter_->Initialize(scaler_.get(), GUID_WICPixelFormat32bppBGR,
                                 WICBitmapDitherTypeNone, nullptr, 0, WICBitmapPaletteTypeCustom));
    return pixels(target);
  }

 private:
  void check(HRESULT result) const { require(result, what_); }

  controls::Picture pixels(Size size) {
    controls::Picture picture;
    picture.width = static_cast<int>(size.width);
    picture.height = static_cast<int>(size.height);
    picture.pixels.resize(static_cast<std::size_t>(size.width) * size.height);
    check(converter_->CopyPixels(nullptr, 4 * size.width,
                                 static_cast<UINT>(4 * picture.pixels.size()),
                                 reinterpret_cast<BYTE*>(picture.pixels.data())));
    for (std::uint32_t& pixel : picture.pixels) pixel |= 0xFF000000u;
    return picture;
  }

  std::string what_;
  ComPointer<IWICImagingFactory> factory_;
  ComPointer<IWICBitmapDecoder> decoder_;
  ComPointer<IWICBitmapFrameDecode> frame_;
  ComPointer<IWICBitmapScaler> scaler_;
  ComPointer<IWICFormatConverter> converter_;
};

}  // namespace

controls::Picture WicPictureLoader::load(const std::string& path) const {
  return Decoding(path).picture();
}

}  // namespace nerolith::windows
