#include "auxiliary/bcf_branch.h"

#include <fmt/format.h>

#include "core/files.h"
#include "core/text.h"

namespace lomaris {
namespace {

/// Whether a name in the project means the record's file. A file that is not on disk yet has only
/// its name.
bool IsFileOf(const AuxData& aux, const std::string& name, const std::string& projectFile) {
  return EqualIgnoringCase(name, aux.FileName) || SameFile(name, aux.FileName, projectFile);
}

/// Calls `found(branch, signed branch)` for each end of a branch that has the record's file.
template <class Found>
void ForEachEnd(const AuxData& aux, const BoundedArray<BranchBCFiles>& files, std::int16_t count,
                const std::string& projectFile, Found found) {
  for (std::int32_t i = 1; i <= Min<std::int64_t>(count, files.Count()); ++i) {
    if (IsFileOf(aux, files[i].Upstream, projectFile)) found(i, i);
    if (IsFileOf(aux, files[i].Downstream, projectFile)) found(i, -i);
  }
}

/// Walks the project's lists and leaves the last end found in `branch`. On the water quality side
/// an end that is not that of `inFile` is told once one was found before. The writer hands in the
/// same number for both, so that what it stores is held against what it found so far.
///
/// Downstream ends are held against the bare number of the branch, too, so a file that both models
/// have at a downstream end is told of: one file seldom suits both there, and the user shall look.
void FindBranch(const AuxData& aux, const AuxSurroundings& around, const std::int32_t& inFile,
                std::int32_t& branch) {
  const ProjectData& project = around.Project;
  branch = 0;
  ForEachEnd(aux, project.BCFilesH, project.BCCountH, project.FileName,
             [&](std::int32_t, std::int32_t end) {
               if (branch != 0) {
                 around.Screen.ShowMessage({.Text = "BCF file appears more than once for Hydro"});
               }
               branch = end;
             });
  ForEachEnd(
      aux, project.BCFilesQ, project.BCCountQ, project.FileName,
      [&](std::int32_t number, std::int32_t end) {
        if (inFile != number && branch != 0) {
          around.Screen.ShowMessage({.Text = "BCF file is used at different locations in Qual",
                                     .BoxIcon = Icon::Critical});
        }
        branch = end;
      });
}

}  // namespace

void CheckBranch(AuxData& aux, const AuxSurroundings& around) {
  const std::int32_t inFile = aux.XSect[1].Node;
  std::int32_t branch = 0;
  FindBranch(aux, around, inFile, branch);
  if (branch == inFile) return;
  // A save will put it right, so closing asks for one; of a file that no branch has, it would lose
  // the number.
  if (branch != 0) aux.Modified = true;
  around.Screen.ShowMessage(
      {.Text = fmt::format("Branch number found in BCF file ({}) was inconsistent with branch "
                           "number for this file indicated in the Project file ({}). The branch "
                           "number has been reset to make it match the Project file; make sure you "
                           "save this file to permanently correct the discrepancy.",
                           inFile, branch),
       .Title = "Warning"});
}

void AdoptBranch(AuxData& aux, const AuxSurroundings& around) {
  std::int32_t& branch = aux.XSect[1].Node;
  FindBranch(aux, around, branch, branch);
  if (branch != 0) return;
  around.Screen.ShowMessage(
      {.Text = "No reference to this BCF file was found in the current project, so the branch "
               "information could not be stored in the file. Once you attach this file to a "
               "project, make sure you open then resave the file to assure it is correctly "
               "referenced in the model.",
       .Title = "Warning"});
}

}  // namespace lomaris
