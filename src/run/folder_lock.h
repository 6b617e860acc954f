#pragma once

#include <string>

namespace lomaris {

/// Keeps two models from running in one folder: a lock on a file there, which stays. Whoever has
/// inherited its descriptor holds it as well, so that it outlives this program with a model that is
/// still at work.
class FolderLock {
 public:
  FolderLock() = default;
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  /// `folder` ends with its separator. False: another one holds the lock. Where files cannot be
  /// locked it is as if nobody did.
  bool Take(const std::string& folder);

  int Descriptor() const { return descriptor_; }

 private:
  int descriptor_ = -1;
};

}  // namespace lomaris
