// COM for the thread that uses it.
#pragma once

namespace nerolith::windows {

/// While it lives, its thread may use COM objects: the user-interface thread in an apartment of its
/// own, which the system's dialogs and dragged files want. Every COM object must be gone before it.
class ComApartment {
 public:
  /// Fails when the thread has entered an apartment of another kind.
  ComApartment();
  ~ComApartment();
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
};

}  // namespace nerolith::windows
