#include "app/shut_down.h"

#include "base/failure_policy.h"

namespace nerolith::app {

void ShutDown::run(bool fileGivenOnCommandLine) {
  using base::goOn;
  if (!fileGivenOnCommandLine) goOn([this] { stored_.writePath(browser_.folder()); });
  goOn([this] { stored_.writePlaylist(neighbours_.playlists.rememberedPlaylist()); });
  goOn([this] { stored_.writeMode(); });
  goOn([this] { stored_.writeLoop(); });
  goOn([this] { neighbours_.selection.deleteMarkedFiles(); });
  goOn([this] { neighbours_.icon.remove(); });
}

}  // namespace nerolith::app
