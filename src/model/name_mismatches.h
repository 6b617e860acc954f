#pragma once

#include <string>
#include <vector>

#include "core/ports/ui.h"

namespace lomaris {

/// Gets the list of all cross sections whose names in a water quality file are not the network's.
inline constexpr const char* kMismatchReport = "QNPErr.txt";

/// The differences of names that one load finds. The model goes by number and order, so that they
/// do no harm to a run; but people read results by names.
class NameMismatches {
 public:
  /// The report goes into the first of the folders that it can be written to. Each ends in a
  /// separator, or is empty for the current directory.
  NameMismatches(Ui& ui, std::vector<std::string> folders)
      : ui_(ui), folders_(std::move(folders)) {}

  /// The first difference makes the report, in place of a former one, and tells the user.
  void Add(const std::string& name, const std::string& networksName);

  /// Puts the list into the report, if there was a difference. A list that cannot be written is
  /// told.
  void Close();

 private:
  void MakeReport();

  Ui& ui_;
  std::vector<std::string> folders_;
  std::string fileName_;
  std::string list_;
};

}  // namespace lomaris
