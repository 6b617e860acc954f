#include "support/temp_folder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>

namespace fs = std::filesystem;

namespace lomaris {

TempFolder::TempFolder() : before_(fs::current_path()) {
  std::string pattern = (fs::temp_directory_path() / "lomaris_test_XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for the test");
  folder_ = fs::canonical(pattern);
  fs::current_path(folder_);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  fs::current_path(before_, ignored);
  fs::remove_all(folder_, ignored);
}

std::string TempFolder::Path(std::string_view name) const {
  return (folder_ / name).string();
}

std::string TempFolder::Write(std::string_view name, std::string_view bytes) const {
  fs::create_directories((folder_ / name).parent_path());
  std::ofstream(folder_ / name, std::ios::binary) << bytes;
  return Path(name);
}

std::string TempFolder::Read(std::string_view name) const {
  std::ifstream file(folder_ / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool TempFolder::Holds(std::string_view name) const {
  return fs::exists(folder_ / name);
}

std::string TempFolder::Entries() const {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder_)) {
    names.insert(entry.path().filename().string());
  }
  std::string joined;
  for (const std::string& name : names) joined += (joined.empty() ? "" : " ") + name;
  return joined;
}

}  // namespace lomaris
