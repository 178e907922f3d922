#include "library/deletion_list.h"

#include "base/failure_policy.h"

namespace nerolith::library {

void DeletionList::deleteAll(platform::FileSystem& files) const {
  for (const std::string& path : paths_) {
    base::goOn([&] {
      if (!files.fileExists(path)) return;
      files.makePlainArchive(path);
      files.deleteFile(path);
    });
  }
}

}  // namespace nerolith::library
