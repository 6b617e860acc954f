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

using namespace std::string_literals;

TEST(FileNames, ComeApartAtBothSeparators) {
  const std::string name = "C:\\a/b.c\\a.b.hnp";
  EXPECT_EQ(FolderOf(name) + BareName(name) + ExtensionOf(name), "C:\\a/b.c\\a.b.hnphnp");
  EXPECT_EQ(FolderOf("a/b\\") + ExtensionOf("x.y/abc") + FolderOf("abc"), "a/b\\");
  EXPECT_EQ(BackupName(name), "C:\\a/b.c\\a.b.bak");
  EXPECT_EQ(BackupName("x.y/abc") + BackupName("Crêté"), "x.y/bakCrbak");
}

TEST(FileNames, AreFoundWithoutRegardToCase) {
  const TempFolder folder;
  for (const char* name : {"Data/Sub/Model.HNP", "Data/x.lat", "Data/X.LAT", "Data/Dir.hnp/a", "y",
                           "proj/Flow.lat", "proj/y", "Été.met"}) {
    folder.Write(name, "");
  }
  fs::create_symlink("nowhere", "dangling");
  const std::string project = "proj\\river.prj";
  EXPECT_EQ(FindFile(" .\\data/../DATA\\SUB\\model.hnp "), "./Data/../Data/Sub/Model.HNP");
  EXPECT_EQ(FindFile(folder.Path("DATA\\X.lat"), project), folder.Path("Data/X.LAT"));
  EXPECT_EQ(FindFile("éTÉ.MET", project), "Été.met");
  EXPECT_EQ(FindFile("Y", project), "proj/y");
  for (const std::string& name : {"Data/Dir.hnp"s, "Data/new.lat"s, "dangling"s, "  "s, "y\0"s}) {
    EXPECT_FALSE(FindFile(name, project)) << name;
  }
  EXPECT_EQ(TargetPath("FLOW.lat", "PROJ\\a") + TargetPath(" ", project), "proj/Flow.lat");
  EXPECT_EQ(TargetPath("data\\new.lat"), "Data/new.lat");
  EXPECT_EQ(TargetPath("Été.met", project), "proj/Été.met");  // the other may be of no project
}

TEST(ReadWholeFile, SaysWhyItCannot) {
  const TempFolder folder;
  fs::resize_file(folder.Write("huge", ""), 5'000'000'000);
  ASSERT_EQ(::mkfifo("pipe", 0600), 0);
  const std::pair<std::string, int> rows[] = {
      {"none", 53}, {".", 75}, {"pipe", 75}, {"huge", 7}, {"huge\0"s, 75}};
  for (const auto& row : rows) {
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(row.first); }), row.second) << row.first;
  }
}

TEST(TemporaryFiles, LieInTheSystemsFolderUntilTheEnd) {
  const TempFolder folder;
  const std::string before = GetTempDir();
  ::setenv("TMPDIR", folder.Path().c_str(), 1);
  EXPECT_TRUE(GetTempFile("ZQ7", "Graph").starts_with(folder.Path("ZQ7")));
  for (const char* name : {"zq7a.b", "zq7", "zq8.tmp", "zq7d.tmp/x"}) folder.Write(name, "");
  DeleteTempFiles();
  EXPECT_EQ(folder.Entries(), "zq7 zq7d.tmp zq8.tmp");
  ::setenv("TMPDIR", before.c_str(), 1);
}

/// Whether the action comes to its end in a process of its own, and returns true.
template <class Action>
bool InChild(Action&& action) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(action() ? 0 : 1);
  int status = 1;
  ::waitpid(child, &status, 0);
  return status == 0;
}

/// A disk whose step number `failing`, counted from 1, throws or kills the process half way.
class FaultyDisk : public Disk {
 public:
  FaultyDisk(int failing, bool kills) : failing_(failing), kills_(kills) {}

  std::string Steps;  ///< that were begun

  std::string WriteBeside(const std::string& path, std::string_view bytes) override {
    if (kills_ && failing_ == 1) Disk::WriteBeside(path, bytes.substr(1));
    Step("write ");
    return Disk::WriteBeside(path, bytes);
  }
  void Link(const std::string& path, const std::string& copy) override {
    Step("link ");
    Disk::Link(path, copy);
  }
  void Rename(const std::string& from, const std::string& to) override {
    Step("rename ");
    Disk::Rename(from, to);
  }
  void FlushFolder(const std::string& path) override {
    Step("flush ");
    Disk::FlushFolder(path);
  }
  void Remove(const std::string& path) noexcept override {
    if (kills_) Step("remove ");
    Disk::Remove(path);
  }

 private:
  void Step(const char* step) {
    Steps += step;
    if (--failing_ != 0) return;
    if (kills_) std::raise(SIGKILL);
    throw RuntimeError(ErrorNumber::DiskFull);
  }

  int failing_;
  bool kills_;
};

int SaveError(const std::string& name, const std::string& text, Disk&& disk = Disk()) {
  return ErrorOf([&] { WriteWholeFile(name, text, Backup::OneGeneration, disk); });
}

TEST(SafeSave, KeepsTheOldFileWholeWhateverStepFails) {
  std::string steps;
  for (int i = 2; i <= 17; ++i) {
    const TempFolder folder;
    folder.Write("a.bak", "older");
    folder.Write("a.hnp", "old");
    const bool kills = i % 2 == 0;
    FaultyDisk disk(i / 2, kills);
    const auto save = [&] { return SaveError("a.hnp", "new", std::move(disk)) == 0; };
    const bool saved = kills ? InChild(save) : save();
    steps = disk.Steps;
    const std::string target = folder.Read("a.hnp"), both = target + " " + folder.Read("a.bak");
    EXPECT_TRUE(both == "new old" || (!saved && (both == "old older" || both == "old old"))) << i;
    EXPECT_EQ(SaveError("a.hnp", "newer"), 0);
    EXPECT_EQ(folder.Read("a.hnp") + folder.Read("a.bak"), "newer" + target) << i;
    // A killed save may leave the file behind that was to become the new version.
    const std::string entries = folder.Entries();
    EXPECT_EQ(kills ? entries.substr(0, 11) : entries, "a.bak a.hnp") << i;
  }
  EXPECT_EQ(steps, "write link rename rename flush ");
}

TEST(SafeSave, TakesLargeFilesPieceByPiece) {
  const TempFolder folder;
  const auto write = [](bool fails) {
    WriteLargeFile("a.bmd", [&](const Sink& sink) {
      for (const char* piece : {"n", "e\r", "w"}) sink(piece);
      if (fails) throw RuntimeError(ErrorNumber::InvalidCall);
      sink(std::string("\0\xB0", 2));
    });
  };
  EXPECT_EQ(ErrorOf([&] { write(false); }), 0);
  EXPECT_EQ(ErrorOf([&] { write(true); }), 5);
  EXPECT_EQ(folder.Read("a.bmd") + folder.Entries(), "ne\rw\0\xB0"s + "a.bmd");
}

TEST(SafeSave, RespectsWhatIsThere) {
  const TempFolder folder;
  folder.Write("real/river.hnp", "old");
  fs::permissions("real/river.hnp", fs::perms(0640));
  fs::create_symlink("real/river.hnp", "link.hnp");
  EXPECT_EQ(SaveError("link.hnp", "new°"), 0);
  EXPECT_TRUE(fs::is_symlink("link.hnp"));
  EXPECT_EQ(folder.Read("real/river.hnp") + folder.Read("link.bak"), "new\xB0old");
  EXPECT_EQ(fs::status("real/river.hnp").permissions(), fs::perms(0640));

  folder.Write("a.bak", "old");
  folder.Write("plain", "new");
  const std::pair<std::string, int> rows[] = {
      {"a.bak", 0}, {"ab", 5}, {"none/river.hnp", 76}, {"real", 75}, {"a.bak\0hnp"s, 75}};
  for (const auto& row : rows) EXPECT_EQ(SaveError(row.first, "new"), row.second) << row.first;
  WriteWholeFile("plain", "newer", Backup::None);
  fs::permissions("plain", fs::perms(0444));
  fs::permissions(folder.Path(), fs::perms(0777));
  EXPECT_TRUE(InChild([] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit few = {4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &few);  // as a full disk
    constexpr uid_t kNobody = 65534;  // root may write every file
    return SaveError("a.bak", std::string(100000, 'x')) == 61 &&
           (::getuid() != 0 || ::setuid(kNobody) == 0) && SaveError("plain", "newest") == 70;
  }));
  EXPECT_EQ(folder.Read("a.bak") + folder.Read("plain"), "newnewer");
  EXPECT_EQ(folder.Entries(), "a.bak link.bak link.hnp plain real");
}

}  // namespace
}  // namespace lomaris
