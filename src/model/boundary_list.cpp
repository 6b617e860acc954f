#include "model/boundary_list.h"

#include <cstdlib>

#include "model/file_names.h"
#include "model/input_file.h"

namespace lomaris {
namespace {

constexpr int kMostBoundaryFiles = 2 * kMostBranches;

}  // namespace

void ReadBoundaryList(ReaderState& in, BoundedArray<BranchBCFiles>& files, std::int16_t& highest,
                      Ui& ui) {
  files = BoundedArray<BranchBCFiles>(1, kMostBranches);
  highest = 0;
  std::int16_t count = 0;
  in.ReadLine(count);
  CheckedCount(count, kMostBoundaryFiles);

  std::string line(in.ReadRawLine());
  CollapseWhitespace(line);
  BoundedArray<std::string> numbers(1, kMostBoundaryFiles);
  int numberCount = 0;
  BreakApart(line, numbers, numberCount, '\t', ui);
  numbers.Resize(numberCount);

  for (int i = 1; i <= count; ++i) {
    const std::string name = TrimField(in.ReadRawLine());
    const std::int16_t number = ToInteger(numbers[i]);
    const int branch = std::abs(int{number});
    BranchBCFiles& ends = files[branch];
    (number > 0 ? ends.Upstream : ends.Downstream) = name;
    highest = Max(highest, static_cast<std::int16_t>(branch));
  }
}

void AppendBoundaryList(std::string& out, const BoundedArray<BranchBCFiles>& files, int highest) {
  int count = 0;
  std::string numbers;
  std::string names;
  const auto add = [&](int number, const std::string& name) {
    if (!NamesAFile(name)) return;
    if (count++ > 0) numbers += '\t';
    AppendNumber(numbers, number);
    AppendLine(names, FileNameLine(name));
  };
  for (int branch = 1; branch <= highest; ++branch) {
    add(branch, files[branch].Upstream);
    add(-branch, files[branch].Downstream);
  }
  AppendLine(out, PrintedNumber(count));
  AppendLine(out, numbers);
  out += names;
}

bool TakeBoundaryFiles(BoundedArray<BranchBCFiles>& mine,
                       const BoundedArray<BranchBCFiles>& theirs) {
  bool changed = false;
  for (std::int64_t i = theirs.Count() + 1; i <= mine.UpperBound(); ++i) {
    changed |= NamesAFile(mine[i].Upstream) || NamesAFile(mine[i].Downstream);
  }
  mine.Resize(theirs.Count());
  for (std::int64_t i = 1; i <= theirs.Count(); ++i) {
    changed |= TakeName(mine[i].Upstream, theirs[i].Upstream);
    changed |= TakeName(mine[i].Downstream, theirs[i].Downstream);
  }
  return changed;
}

}  // namespace lomaris
