#include "platform/windows/com_apartment.h"

#include <windows.h>
// After windows.h, which it needs.
#include <ole2.h>

#include "platform/windows/failure_text.h"

namespace nerolith::windows {

ComApartment::ComApartment() { require(OleInitialize(nullptr), "The component library"); }

ComApartment::~ComApartment() { OleUninitialize(); }

}  // namespace nerolith::windows
