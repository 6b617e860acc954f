#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace lomaris {

// --- Names. Both "\" and "/" separate; names are UTF-8.

/// The folder of a file name with its last separator; empty when it has none.
std::string FolderOf(std::string_view fileName);

/// The file name behind the last separator.
std::string BareName(std::string_view fileName);

/// What stands behind the last point of the bare name; "hnp" of "a.b.hnp", empty for none.
std::string ExtensionOf(std::string_view fileName);

/// The name with its last three characters replaced by "bak": where a save keeps the previous
/// version. Error 5 for a name of fewer than three characters.
std::string BackupName(std::string_view fileName);

/// The path of an existing file, or nothing: the name as it stands, then without regard to case,
/// part by part. A name that is not absolute is looked up from the folder of `besideFile`, which is
/// the project, then from the current directory. A folder is no file.
std::optional<std::string> FindFile(std::string_view name, std::string_view besideFile = {});

/// Whether two names mean one existing file, each looked up as by `FindFile`: however they are
/// spelt, and through links.
bool SameFile(std::string_view one, std::string_view other, std::string_view besideFile = {});

/// Tells whether a file was written since: its size and the time of its last change, 0 when there
/// is no such file.
struct FileStamp {
  std::uintmax_t Size = 0;
  std::int64_t Time = 0;  ///< ticks of the file system's clock

  bool operator==(const FileStamp&) const = default;
};
FileStamp StampOf(std::string_view name, std::string_view besideFile = {});

/// The path that a save to `name` writes: the existing file that it means without regard to case,
/// else the name with the separators of this platform. A name that is not absolute lies in the
/// folder of `besideFile`; in the current directory where that has none.
std::string TargetPath(std::string_view name, std::string_view besideFile = {});

/// Whether the folder is there that a file of this name lies in, or would lie in.
bool FolderExists(std::string_view fileName);

/// Moves the current directory to the folder of a file; a folder that is not there is left alone.
void MoveToFolderOf(std::string_view fileName);

// --- Content.

/// All bytes of a file. Throws RuntimeError with the file's name: 53 when it is not there, 70 when
/// it may not be read, 75 when it is a folder or a device, 7 when it is larger than 256 MB, 57 and
/// others when the disk fails.
std::string ReadWholeFile(const std::string& path);

/// Takes bytes of a file that is being written; the next ones stand behind them.
using Sink = std::function<void(std::string_view bytes)>;

/// Hands all bytes of a file to `write`, piece by piece.
using Content = std::function<void(const Sink& write)>;

/// The steps of a safe save, each one system call; tests let any of them fail.
class Disk {
 public:
  virtual ~Disk() = default;

  /// Makes a new file in the folder of `path`, with the permissions of the file at `path` if there
  /// is one, writes `bytes`, flushes them to the disk and returns its path.
  virtual std::string WriteBeside(const std::string& path, std::string_view bytes);

  /// The same for bytes that are not all there at once.
  virtual std::string FillBeside(const std::string& path, const Content& content);

  /// Makes `copy` another name of the file `path` (or a copy, where the disk knows no links).
  virtual void Link(const std::string& path, const std::string& copy);

  /// Renames over what is there.
  virtual void Rename(const std::string& from, const std::string& to);

  /// Flushes the names of a folder to the disk.
  virtual void FlushFolder(const std::string& path);

  /// Removes a file that is left over. Never throws.
  virtual void Remove(const std::string& path) noexcept;
};

enum class Backup { None, OneGeneration };

/// The one routine that puts texts on disk. Writes beside the target, flushes to the disk, keeps
/// the previous version under `BackupName`, renames over the target. At each moment the target is
/// either the old file or the new one, whole; the backup likewise. Text that does not fit
/// Windows-1252 goes out as UTF-8. Throws RuntimeError when a step fails; the target is then the
/// old file.
void WriteWholeFile(const std::string& path, std::string text, Backup backup);
void WriteWholeFile(const std::string& path, std::string text, Backup backup, Disk& disk);

/// `WriteWholeFile` for a file of bytes that no memory may hold twice; it has no backup. What
/// `content` throws leaves the old file as it was, too.
void WriteLargeFile(const std::string& path, const Content& content);
void WriteLargeFile(const std::string& path, const Content& content, Disk& disk);

// --- Temporary files.

/// The system's temporary directory with its last separator; empty on failure.
std::string GetTempDir();

/// A new, empty file in it with a name that begins with `prefix` and ends in "." and `extension`;
/// empty on failure.
std::string GetTempFile(std::string_view prefix, std::string_view extension);

/// Prefix of every temporary file of the program.
inline constexpr std::string_view kTempPrefix = "zq7";

/// Deletes the program's temporary files: all that begin with `kTempPrefix`, in any case, and have
/// an extension.
void DeleteTempFiles();

}  // namespace lomaris
