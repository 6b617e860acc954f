#include "core/files.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/encoding.h"
#include "core/file_reader.h"
#include "core/open_file.h"
#include "core/run_time_error.h"
#include "core/text.h"

namespace fs = std::filesystem;

namespace lomaris {
namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr std::size_t kLongestTempPath = 512;
constexpr std::uint64_t kLargestFile = 256U << 20;

std::size_t BareNameStart(std::string_view fileName) {
  const std::size_t separator = fileName.find_last_of(kSeparators);
  return separator == std::string_view::npos ? 0 : separator + 1;
}

fs::path PlatformPath(std::string_view name) {
  std::string path(name);
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

/// The entry of a folder whose name equals `name` but for case; the first in order of names.
std::optional<fs::path> EntryIgnoringCase(const fs::path& folder, const fs::path& name) {
  std::vector<fs::path> found;
  std::error_code failed;
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, failed), end;
       !failed && entry != end; entry.increment(failed)) {
    const fs::path entryName = entry->path().filename();
    if (EqualIgnoringCase(entryName.string(), name.string())) found.push_back(folder / entryName);
  }
  if (found.empty()) return std::nullopt;
  return *std::min_element(found.begin(), found.end());
}

/// An existing path for one that may differ from it in case.
std::optional<fs::path> ExistingPath(const fs::path& path) {
  std::error_code failed;
  if (fs::exists(path, failed)) return path;
  fs::path found;
  for (const fs::path& part : path) {
    if (part == path.root_path() || fs::exists(found / part, failed)) {
      found /= part;
      continue;
    }
    std::optional<fs::path> entry = EntryIgnoringCase(found, part);
    if (!entry) return std::nullopt;
    found = *std::move(entry);
  }
  if (!fs::exists(found, failed)) return std::nullopt;  // a link to nowhere
  return found;
}

std::optional<std::string> ExistingFile(const fs::path& path) {
  const std::optional<fs::path> found = ExistingPath(path);
  std::error_code failed;
  if (!found || fs::is_directory(*found, failed)) return std::nullopt;
  return found->string();
}

void WriteAll(int descriptor, std::string_view bytes, const std::string& path) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw FileError(written == 0 ? ENOSPC : errno, path);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// Permissions of a file that is to be replaced, or those of a new file.
mode_t ModeFor(const std::string& path) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) == 0) return status.st_mode & 07777;
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

void CheckReplaceable(const std::string& path) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) != 0) return;
  CheckPlainFile(status, path);
  if (::access(path.c_str(), W_OK) != 0) throw FileError(errno, path);
}

/// Removes the file that a failed save leaves beside its target.
class LeftOver {
 public:
  LeftOver(Disk& disk, std::string path) : disk_(disk), path_(std::move(path)) {}
  ~LeftOver() {
    if (!path_.empty()) disk_.Remove(path_);
  }
  LeftOver(const LeftOver&) = delete;
  LeftOver& operator=(const LeftOver&) = delete;

  const std::string& Path() const { return path_; }
  void Release() { path_.clear(); }

 private:
  Disk& disk_;
  std::string path_;
};

/// `path` is the name under which the file is known, `target` the file itself.
void KeepBackup(const std::string& path, const std::string& target, Disk& disk) {
  const std::string backup = BackupName(path);
  std::error_code failed;
  if (backup == path || !fs::exists(target, failed)) return;
  // Stays behind when the backup is already this very file: then a rename does nothing.
  const LeftOver link(disk, backup + "~new");
  disk.Remove(link.Path());
  disk.Link(target, link.Path());
  disk.Rename(link.Path(), backup);
}

/// The file that a name stands for: a link keeps pointing to its file.
std::string RealPath(const std::string& path) {
  CheckName(path);
  std::error_code notThere;
  const fs::path real = fs::canonical(path, notThere);
  return notThere ? path : real.string();
}

void PutInPlace(LeftOver& beside, const std::string& target, Disk& disk) {
  disk.Rename(beside.Path(), target);
  beside.Release();
  disk.FlushFolder(target);
}

std::string MakeFile(std::string pattern, std::size_t suffixLength) {
  const OpenFile file(::mkstemps(pattern.data(), static_cast<int>(suffixLength)));
  return file.IsOpen() ? pattern : std::string();
}

}  // namespace

std::string FolderOf(std::string_view fileName) {
  return std::string(fileName.substr(0, BareNameStart(fileName)));
}

std::string BareName(std::string_view fileName) {
  return std::string(fileName.substr(BareNameStart(fileName)));
}

std::string ExtensionOf(std::string_view fileName) {
  const std::string name = BareName(fileName);
  const std::size_t point = name.rfind('.');
  return point == std::string::npos ? std::string() : name.substr(point + 1);
}

std::string BackupName(std::string_view fileName) {
  const std::size_t nameStart = BareNameStart(fileName);
  std::size_t cut = fileName.size();
  for (int character = 0; character < 3; ++character) {
    if (cut == nameStart) {
      throw RuntimeError(ErrorNumber::InvalidCall,
                         "\"" + std::string(fileName) + "\" is too short for a file name");
    }
    do {
      --cut;
    } while (cut > nameStart && IsInsideCharacter(fileName[cut]));
  }
  return std::string(fileName.substr(0, cut)) + "bak";
}

std::optional<std::string> FindFile(std::string_view name, std::string_view besideFile) {
  const std::string_view trimmed = Trim(name);
  if (trimmed.empty() || trimmed.find('\0') != std::string_view::npos) return std::nullopt;
  const fs::path path = PlatformPath(trimmed);
  // The folder of the project comes first: a dialog that moved the current directory must not make
  // a name of the project mean a file of another one.
  const fs::path folder = PlatformPath(FolderOf(besideFile));
  if (path.is_relative() && !folder.empty()) {
    if (std::optional<std::string> found = ExistingFile(folder / path)) return found;
  }
  return ExistingFile(path);
}

bool SameFile(std::string_view one, std::string_view other, std::string_view besideFile) {
  const auto first = FindFile(one, besideFile);
  const auto second = FindFile(other, besideFile);
  std::error_code error;
  return first && second && fs::equivalent(*first, *second, error);
}

FileStamp StampOf(std::string_view name, std::string_view besideFile) {
  const auto path = FindFile(name, besideFile);
  std::error_code error;
  const auto size = path ? fs::file_size(*path, error) : 0;
  if (!path || error) return {};
  const auto time = fs::last_write_time(*path, error);
  return error ? FileStamp{} : FileStamp{size, time.time_since_epoch().count()};
}

std::string TargetPath(std::string_view name, std::string_view besideFile) {
  // What is found in the current directory alone may belong to another project.
  fs::path path = PlatformPath(Trim(name));
  if (path.empty()) return {};
  if (path.is_relative()) path = PlatformPath(FolderOf(besideFile)) / path;
  if (std::optional<std::string> found = FindFile(path.string())) return *std::move(found);
  const std::optional<fs::path> folder = ExistingPath(path.parent_path());
  return (folder ? *folder / path.filename() : path).string();
}

bool FolderExists(std::string_view fileName) {
  const fs::path folder = fs::path(TargetPath(fileName)).parent_path();
  std::error_code failed;
  return folder.empty() || fs::is_directory(folder, failed);
}

void MoveToFolderOf(std::string_view fileName) {
  const fs::path folder = PlatformPath(FolderOf(fileName));
  std::error_code leftAlone;
  if (!folder.empty()) fs::current_path(folder, leftAlone);
}

std::string ReadWholeFile(const std::string& path) {
  FileReader file(path);
  if (file.Size() > kLargestFile) {
    throw RuntimeError(ErrorNumber::OutOfMemory, path + " is larger than 256 MB");
  }
  std::string bytes(file.Size(), '\0');
  bytes.resize(file.Read(bytes.data(), bytes.size()));
  return bytes;
}

std::string Disk::WriteBeside(const std::string& path, std::string_view bytes) {
  return FillBeside(path, [bytes](const Sink& write) { write(bytes); });
}

std::string Disk::FillBeside(const std::string& path, const Content& content) {
  CheckReplaceable(path);
  std::string name = path + "~XXXXXX";
  OpenFile file(::mkstemp(name.data()));
  if (!file.IsOpen()) throw FileError(errno == ENOENT ? ENOTDIR : errno, path);
  try {
    // A disk that knows no permissions, or whose files belong to somebody else, has its own.
    static_cast<void>(::fchmod(file.Get(), ModeFor(path)));
    content([&](std::string_view bytes) { WriteAll(file.Get(), bytes, path); });
    if (::fsync(file.Get()) != 0 || !file.Close()) throw FileError(errno, path);
  } catch (...) {
    Remove(name);
    throw;
  }
  return name;
}

void Disk::Link(const std::string& path, const std::string& copy) {
  if (::link(path.c_str(), copy.c_str()) == 0) return;
  std::error_code failed;
  fs::copy_file(path, copy, failed);
  if (failed) throw FileError(failed.value(), copy);
  const OpenFile file(::open(copy.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsOpen() || ::fsync(file.Get()) != 0) throw FileError(errno, copy);
}

void Disk::Rename(const std::string& from, const std::string& to) {
  if (::rename(from.c_str(), to.c_str()) != 0) throw FileError(errno, to);
}

void Disk::FlushFolder(const std::string& path) {
  const std::string folder = FolderOf(path);
  const OpenFile directory(
      ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // Some disks cannot flush a folder; the file itself is safe by now.
  if (directory.IsOpen()) ::fsync(directory.Get());
}

void Disk::Remove(const std::string& path) noexcept {
  ::unlink(path.c_str());
}

void WriteWholeFile(const std::string& path, std::string text, Backup backup) {
  Disk disk;
  WriteWholeFile(path, std::move(text), backup, disk);
}

void WriteWholeFile(const std::string& path, std::string text, Backup backup, Disk& disk) {
  if (backup == Backup::OneGeneration) BackupName(path);  // refuses a name that is too short
  const std::string target = RealPath(path);
  LeftOver beside(disk, disk.WriteBeside(target, FileFromText(std::move(text))));
  if (backup == Backup::OneGeneration) KeepBackup(path, target, disk);
  PutInPlace(beside, target, disk);
}

void WriteLargeFile(const std::string& path, const Content& content) {
  Disk disk;
  WriteLargeFile(path, content, disk);
}

void WriteLargeFile(const std::string& path, const Content& content, Disk& disk) {
  const std::string target = RealPath(path);
  LeftOver beside(disk, disk.FillBeside(target, content));
  PutInPlace(beside, target, disk);
}

std::string GetTempDir() {
  std::error_code failed;
  const fs::path folder = fs::temp_directory_path(failed);
  std::string path = failed ? std::string() : (folder / "").string();
  return path.size() < kLongestTempPath ? path : std::string();
}

std::string GetTempFile(std::string_view prefix, std::string_view extension) {
  const std::string folder = GetTempDir();
  if (folder.empty()) return {};
  const std::string suffix = "." + std::string(extension);
  return MakeFile(folder + std::string(prefix) + "XXXXXX" + suffix, suffix.size());
}

void DeleteTempFiles() {
  const std::string folder = GetTempDir();
  std::error_code failed;
  if (folder.empty()) return;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    const std::string name = entry->path().filename().string();
    std::error_code notOurs;
    if (EqualIgnoringCase(name.substr(0, kTempPrefix.size()), kTempPrefix) &&
        name.find('.') != std::string::npos && entry->is_regular_file(notOurs)) {
      fs::remove(entry->path(), notOurs);
    }
  }
}

}  // namespace lomaris
