#include "run/folder_lock.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace lomaris {
namespace {

constexpr const char* kLockFileName = "vesk.lck";

}  // namespace

FolderLock::~FolderLock() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

bool FolderLock::Take(const std::string& folder) {
  const std::string path = folder + kLockFileName;
  descriptor_ = ::open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
  return descriptor_ < 0 || ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

}  // namespace lomaris
