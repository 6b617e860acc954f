#include "auxiliary/aux_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>

#include <fmt/format.h>

#include "auxiliary/aux_cursor.h"
#include "auxiliary/aux_load.h"
#include "auxiliary/aux_text.h"
#include "auxiliary/bcf_file.h"
#include "auxiliary/bmd_view.h"
#include "auxiliary/lat_file.h"
#include "auxiliary/met_file.h"
#include "auxiliary/pow_file.h"
#include "auxiliary/step_progress.h"
#include "auxiliary/wit_file.h"
#include "core/error_report.h"
#include "core/files.h"
#include "model/input_file.h"

namespace lomaris {
namespace {

/// Reader and writer of a text kind.
struct TextKind {
  std::string_view Key;
  bool (*Read)(const AuxLoad& load);
  void (*Append)(std::string& out, AuxData& aux, const AuxSurroundings& around);
};

constexpr std::string_view kResults = "BMD";

constexpr std::array kTextKinds = {
    TextKind{"LAT", ReadLAT, AppendLAT}, TextKind{"WIT", ReadWIT, AppendWIT},
    TextKind{"POW", ReadPOW, AppendPOW}, TextKind{"BCF", ReadBCF, AppendBCF},
    TextKind{"MET", ReadMET, AppendMET},
};

const TextKind& TextKindOf(const AuxData& aux) {
  const std::string key = KindOf(aux);
  const auto kind = std::find_if(kTextKinds.begin(), kTextKinds.end(),
                                 [&](const TextKind& each) { return each.Key == key; });
  if (kind != kTextKinds.end()) return *kind;
  throw RuntimeError(
      ErrorNumber::InvalidCall,
      aux.FileName + (key == kResults ? " holds results of a model, which are viewed "
                                        "and not saved"
                                      : " is no auxiliary file"));
}

/// Asks whether a file that is not there is to be created.
void OfferToCreate(const std::string& fileName, const AuxSurroundings& around) {
  const Answer answer = around.Screen.ShowMessage(
      {.Text = fmt::format("File {} does not exist.\r\n\r\nDo you want to create it?", fileName),
       .Title = "Edit Auxiliary File",
       .BoxButtons = Buttons::YesNo});
  if (answer == Answer::Yes) {
    Trap(around.Screen, "LoadAUXFile").Run([&] {
      WriteWholeFile(TargetPath(fileName, around.Project.FileName), {}, Backup::None);
    });
  } else if (around.Window != nullptr) {
    around.Window->Close();
  }
}

void TellInputAborted(const RuntimeError& error, const std::string& fileName,
                      const std::optional<AuxCursor>& in, Ui& ui) {
  ui.ShowMessage({.Text = InputAborted(error, in ? in->LineNumber() : 1, fileName,
                                       in ? in->LastLine() : std::string()),
                  .Title = "Error"});
}

bool ReadContent(AuxData& aux, const std::string& path, const AuxSurroundings& around) {
  std::optional<AuxCursor> in;
  try {
    if (KindOf(aux) == kResults) return ReadModelResults(aux, path, around);
    const TextKind& kind = TextKindOf(aux);
    in.emplace(around.Screen, path);
    for (std::string& line : aux.Description) line = in->ReadWhole();
    return kind.Read({*in, aux, around});
  } catch (const std::exception&) {
    if constexpr (DebugMode) throw;
    TellInputAborted(CurrentRuntimeError(), aux.FileName, in, around.Screen);
    return false;
  }
}

}  // namespace

bool LoadAUXFile(AuxData& aux, const AuxSurroundings& around) {
  aux.Modified = false;
  const std::optional<std::string> path = FindFile(aux.FileName, around.Project.FileName);
  if (!path) {
    OfferToCreate(aux.FileName, around);
    return false;
  }
  std::error_code unknown;
  if (std::filesystem::file_size(*path, unknown) == 0) return false;

  AuxData loaded;
  loaded.FileName = aux.FileName;
  loaded.BoundaryType = aux.BoundaryType;
  bool read = false;
  {
    const WindowAtWork atWork(around.Window, WindowAtWork::Tab::Locked);
    read = ReadContent(loaded, *path, around);
  }
  if (read) aux = std::move(loaded);
  if (!read && around.Window != nullptr) around.Window->Close();
  return read;
}

bool SaveAUXFile(AuxData& aux, const AuxSurroundings& around) {
  const StepEnd end = Trap(around.Screen, "SaveAUXFile").Run([&] {
    const WindowAtWork atWork(around.Window, WindowAtWork::Tab::Usable);
    std::string text;
    AppendDescriptions(text, aux);
    TextKindOf(aux).Append(text, aux, around);
    WriteWholeFile(TargetPath(aux.FileName, around.Project.FileName), std::move(text),
                   Backup::None);
  });
  if (end != StepEnd::Done) return false;
  aux.Modified = false;
  return true;
}

}  // namespace lomaris
