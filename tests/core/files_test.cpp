#include "core/files.h"

#include <csignal>
#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/error_of.h"
#include "support/temp_folder.h"

namespace fs = std::filesystem;

namespace lomaris {
namespace {

TEST(FileNames, ComeApartAtBothSeparators) {
  const std::pair<std::string, std::string> rows[] = {
      {"C:\\a/b.c\\a.b.hnp", "C:\\a/b.c\\|a.b.hnp|hnp|C:\\a/b.c\\a.b.bak"},
      {"x.y/abc", "x.y/|abc||x.y/bak"},
      {"long/ab", "long/|ab||error5"},
      {"Crêté", "|Crêté||Crbak"}};
  for (const auto& row : rows) {
    std::string backup;
    if (ErrorOf([&] { backup = BackupName(row.first); }) == 5) backup = "error5";
    EXPECT_EQ(FolderOf(row.first) + '|' + BareName(row.first) + '|' + ExtensionOf(row.first) + '|' +
                  backup,
              row.second);
  }
}

TEST(FileNames, AreFoundWithoutRegardToCase) {
  const TempFolder folder;
  for (const char* name : {"Data/Sub/Model.HNP", "Data/x.lat", "Data/X.LAT", "Data/Dir.hnp/a", "y",
                           "proj/Flow.lat", "proj/y", "Été.met"}) {
    folder.Write(name, "");
  }
  struct Row {
    std::string Name, Found, Target;
  };
  const Row rows[] = {{" data\\SUB\\model.hnp ", "Data/Sub/Model.HNP", ""},
                      {".\\data/../DATA/x.lat", "./Data/../Data/x.lat", ""},
                      {"Data/x.LAT", "Data/X.LAT", ""},
                      {folder.Path("DATA\\X.lat"), folder.Path("Data/X.LAT"), ""},
                      {"éTÉ.MET", "Été.met", ""},
                      {"flow.LAT", "proj/Flow.lat", ""},
                      {"Y", "proj/y", ""},
                      {"Data/Dir.hnp", "", "Data/Dir.hnp"},
                      {"data\\new.lat", "", "Data/new.lat"},
                      {"none\\new.lat", "", "none/new.lat"},
                      {"y\\x", "", "y/x"},
                      {"c:\\river\\y", "", "c:/river/y"},
                      {"  ", "", ""},
                      {std::string("y\0", 2), "", std::string("y\0", 2)}};
  for (const Row& row : rows) {
    EXPECT_EQ(FindFile(row.Name, "proj\\river.prj").value_or(""), row.Found) << row.Name;
    EXPECT_EQ(TargetPath(row.Name, "proj\\river.prj"), row.Found + row.Target);
  }
}

TEST(ReadWholeFile, SaysWhyItCannot) {
  const TempFolder folder;
  fs::resize_file(folder.Write("huge", ""), 5'000'000'000);
  ASSERT_EQ(::mkfifo("pipe", 0600), 0);
  const std::pair<std::string, int> rows[] = {
      {"none", 53}, {".", 75}, {"pipe", 75}, {"huge", 7}, {std::string("huge\0", 5), 75}};
  for (const auto& row : rows) {
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(row.first); }), row.second) << row.first;
  }
}

TEST(TemporaryFiles, LieInTheSystemsFolderUntilTheEnd) {
  const TempFolder folder;
  const char* const before = std::getenv("TMPDIR");
  const std::string restored = before == nullptr ? "/tmp" : before;
  ::setenv("TMPDIR", folder.Path().c_str(), 1);
  const std::string file = GetTempFile("ZQ7", "Graph");
  EXPECT_TRUE(file.starts_with(folder.Path("ZQ7")) && file.ends_with(".Graph")) << file;
  EXPECT_EQ(ReadWholeFile(file), "");
  EXPECT_NE(GetTempFile("ZQ7", "Graph"), file);
  for (const char* name : {"zq7a.b", "zq7", "zq8.tmp", "zq7d.tmp/x"}) folder.Write(name, "");
  DeleteTempFiles();
  EXPECT_EQ(folder.Entries(), "zq7 zq7d.tmp zq8.tmp");
  for (const std::string& bad : {folder.Path("none"), folder.Path(std::string(600, '/'))}) {
    ::setenv("TMPDIR", bad.c_str(), 1);
    EXPECT_EQ(GetTempDir() + GetTempFile("ZQ7", "txt"), "");
  }
  ::setenv("TMPDIR", restored.c_str(), 1);
}

enum class Fault { None, Throws, KillsTheProcess };

/// A disk on which step number `failing`, counted from 1, does not come to its end.
class FaultyDisk : public Disk {
 public:
  FaultyDisk(int failing, Fault fault) : failing_(failing), fault_(fault) {}

  int Steps() const { return steps_; }

  std::string WriteBeside(const std::string& path, std::string_view bytes) override {
    const bool dies = fault_ == Fault::KillsTheProcess && steps_ + 1 == failing_;
    if (dies) Disk::WriteBeside(path, bytes.substr(0, bytes.size() / 2));
    Step();
    return Disk::WriteBeside(path, bytes);
  }
  void Link(const std::string& path, const std::string& copy) override {
    Step();
    Disk::Link(path, copy);
  }
  void Rename(const std::string& from, const std::string& to) override {
    Step();
    Disk::Rename(from, to);
  }
  void FlushFolder(const std::string& path) override {
    Step();
    Disk::FlushFolder(path);
  }
  void Remove(const std::string& path) noexcept override {
    if (!Fails()) Disk::Remove(path);
  }

 private:
  bool Fails() {
    if (++steps_ != failing_) return false;
    if (fault_ == Fault::KillsTheProcess) std::raise(SIGKILL);
    return true;
  }
  void Step() {
    if (Fails()) throw RuntimeError(ErrorNumber::DiskFull);
  }

  int failing_;
  Fault fault_;
  int steps_ = 0;
};

/// Runs the action in a process of its own; whether it came to its end and returned true.
template <class Action>
bool InChild(Action&& action) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(action() ? 0 : 1);
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

int SaveError(const std::string& name, const std::string& text, Disk&& disk = Disk()) {
  return ErrorOf([&] { WriteWholeFile(name, text, Backup::OneGeneration, disk); });
}

/// Saves a third version over `before` earlier ones, with a fault at step `failing`; what is on
/// the disk must be whole then, and as ever after the next save.
void SaveWithFault(int before, int failing, Fault fault) {
  const TempFolder folder;
  const std::string older = before == 2 ? "first" : "", old = before > 0 ? "second" : "";
  if (before == 2) SaveError("river.hnp", older);
  if (before > 0) SaveError("river.hnp", old);

  const auto save = [&] {
    return SaveError("river.hnp", "third", FaultyDisk(failing, fault)) == 0;
  };
  const bool saved = fault == Fault::Throws ? save() : InChild(save);
  const std::string target = folder.Read("river.hnp"), backup = folder.Read("river.bak");
  EXPECT_EQ(target, saved || target != old ? "third" : old);
  EXPECT_EQ(backup, saved || backup != older ? old : older);

  EXPECT_EQ(SaveError("river.hnp", "fourth"), 0);
  EXPECT_EQ(folder.Read("river.hnp"), "fourth");
  EXPECT_EQ(folder.Read("river.bak"), target);
  const std::string entries = target.empty() ? "river.hnp" : "river.bak river.hnp";
  // A killed save may leave the file behind that was to become the new version.
  const std::size_t stray = fault == Fault::Throws ? 0 : sizeof " river.hnp~XXXXXX" - 1;
  EXPECT_TRUE(folder.Entries().starts_with(entries)) << folder.Entries();
  EXPECT_LE(folder.Entries().size(), entries.size() + stray) << folder.Entries();
}

TEST(SafeSave, KeepsTheOldFileWholeWhateverStepFails) {
  constexpr int kSteps = 7;
  for (int step = 1; step <= kSteps + 1; ++step) {
    for (const Fault fault : {Fault::Throws, Fault::KillsTheProcess}) {
      for (const int before : {0, 1, 2}) {
        SCOPED_TRACE("step " + std::to_string(step) + ", earlier versions " +
                     std::to_string(before));
        SaveWithFault(before, step, fault);
      }
    }
  }
  const TempFolder folder;
  folder.Write("river.hnp", "");
  FaultyDisk counting(0, Fault::None);
  WriteWholeFile("river.hnp", "x", Backup::OneGeneration, counting);
  EXPECT_EQ(counting.Steps(), kSteps);
}

TEST(SafeSave, OnAFullDiskKeepsTheOldFile) {
  const TempFolder folder;
  folder.Write("river.hnp", "old");
  EXPECT_TRUE(InChild([] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit few = {4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &few);
    return SaveError("river.hnp", std::string(100000, 'x')) == 61;
  }));
  EXPECT_EQ(folder.Read("river.hnp"), "old");
  EXPECT_EQ(folder.Entries(), "river.hnp");
}

TEST(SafeSave, RespectsWhatIsThere) {
  const TempFolder folder;
  folder.Write("real/river.hnp", "old");
  fs::permissions("real/river.hnp", fs::perms(0640));
  fs::create_symlink("real/river.hnp", "link.hnp");
  EXPECT_EQ(SaveError("link.hnp", "new°"), 0);
  EXPECT_TRUE(fs::is_symlink("link.hnp"));
  EXPECT_EQ(folder.Read("real/river.hnp") + folder.Read("real/river.bak"), "new\xB0old");
  EXPECT_EQ(fs::status("real/river.hnp").permissions(), fs::perms(0640));

  folder.Write("a.bak", "old");
  const std::pair<std::string, int> rows[] = {{"a.bak", 0},
                                              {"ab", 5},
                                              {"none/river.hnp", 53},
                                              {"real", 75},
                                              {std::string("a.bak\0hnp", 9), 75}};
  for (const auto& row : rows) EXPECT_EQ(SaveError(row.first, "new"), row.second) << row.first;
  WriteWholeFile("plain", "new", Backup::None);
  WriteWholeFile("plain", "newer", Backup::None);
  EXPECT_EQ(folder.Entries(), "a.bak link.hnp plain real");

  fs::permissions("plain", fs::perms(0444));
  fs::permissions(folder.Path(), fs::perms(0777));
  EXPECT_TRUE(InChild([] {
    constexpr uid_t kNobody = 65534;  // root may write every file
    return (::getuid() != 0 || ::setuid(kNobody) == 0) && SaveError("plain", "new") == 70;
  }));
  EXPECT_EQ(folder.Read("plain"), "newer");
}

}  // namespace
}  // namespace lomaris
