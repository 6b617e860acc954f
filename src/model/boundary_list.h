#pragma once

#include <cstdint>
#include <string>

#include "core/bounded_array.h"
#include "core/ports/ui.h"
#include "core/reader_state.h"
#include "model/project_data.h"

namespace lomaris {

// The list of boundary condition files, as the project file and the trailers of the input files
// hold it:
//
//   number of named files, a blank before and after it
//   branch numbers, tab-separated: a branch's number for its upstream file, the negative of it for
//     the downstream file, upstream first; an empty line for none
//   one line per number: the file's name

/// Reads a list into `files`, made new with a place for each of the `kMostBranches` branches;
/// `highest` becomes the highest branch number of the list. Error 9 for a branch number that has no
/// place, more than two numbers a branch, or fewer than the list's count; what was read before it
/// stands.
void ReadBoundaryList(ReaderState& in, BoundedArray<BranchBCFiles>& files, std::int16_t& highest,
                      Ui& ui);

/// Writes the list of the branches 1 to `highest`.
void AppendBoundaryList(std::string& out, const BoundedArray<BranchBCFiles>& files, int highest);

/// The boundary files of the branches of a model input in use.
template <class Input>
BoundedArray<BranchBCFiles> BoundaryFiles(const Input& input) {
  BoundedArray<BranchBCFiles> files(1, input.BranchCount);
  for (int i = 1; i <= input.BranchCount; ++i) {
    files[i] = {input.Branches[i].USFile, input.Branches[i].DSFile};
  }
  return files;
}

/// Gives each branch in use the boundary files that stand at its number.
template <class Input>
void GiveBoundaryFiles(Input& input, const BoundedArray<BranchBCFiles>& files) {
  for (int i = 1; i <= input.BranchCount; ++i) {
    input.Branches[i].USFile = files[i].Upstream;
    input.Branches[i].DSFile = files[i].Downstream;
  }
}

/// Makes a project's list that of the branches of a saved file. True when it names other files now.
bool TakeBoundaryFiles(BoundedArray<BranchBCFiles>& mine,
                       const BoundedArray<BranchBCFiles>& theirs);

}  // namespace lomaris
