#include "core/file_reader.h"

#include <cerrno>

#include <fcntl.h>

#include "core/run_time_error.h"

namespace lomaris {
namespace {

int OpenToRead(const std::string& path) {
  CheckName(path);
  // A pipe must not keep the program waiting for its other end.
  return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

}  // namespace

void CheckName(const std::string& path) {
  if (path.find('\0') != std::string::npos) {
    throw RuntimeError(ErrorNumber::PathFileAccess, "a zero byte stands in the name of the file");
  }
}

void CheckPlainFile(const struct stat& status, const std::string& path) {
  if (!S_ISREG(status.st_mode)) {
    throw RuntimeError(ErrorNumber::PathFileAccess, path + " is not a plain file");
  }
}

FileReader::FileReader(const std::string& path) : path_(path), file_(OpenToRead(path)) {
  struct stat status = {};
  if (!file_.IsOpen() || ::fstat(file_.Get(), &status) != 0) throw FileError(errno, path);
  CheckPlainFile(status, path);
  size_ = static_cast<std::uint64_t>(status.st_size);
}

std::size_t FileReader::Read(void* bytes, std::size_t size) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got = ::read(file_.Get(), static_cast<char*>(bytes) + done, size - done);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) throw FileError(errno, path_);
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

void FileReader::Skip(std::uint64_t size) {
  if (::lseek(file_.Get(), static_cast<off_t>(size), SEEK_CUR) < 0) throw FileError(errno, path_);
}

}  // namespace lomaris
