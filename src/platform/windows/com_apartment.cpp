#include "platform/windows/com_apartment.h"

#include <windows.h>
// After windows.h, which it needs.
#include <objbase.h>

#include "platform/windows/failure_text.h"

namespace nerolith::windows {

ComApartment::ComApartment() {
  require(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE),
          "The component library");
}

ComApartment::~ComApartment() { CoUninitialize(); }

}  // namespace nerolith::windows
