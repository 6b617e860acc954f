#pragma once

#include <string_view>

#include "model/project_data.h"

namespace lomaris {

/// Which of the two model programs is stood in for.
enum class ModelKind { Hydro, Qual };

/// The program's name, without its ending.
constexpr std::string_view NameOf(ModelKind kind) {
  return kind == ModelKind::Hydro ? "TavreskH" : "TavreskQ";
}

/// The type of its input file, which the name of its output file has "out" for.
constexpr std::string_view InputTypeOf(ModelKind kind) {
  return kind == ModelKind::Hydro ? "HNP" : "QNP";
}

/// Its input file, as the project names it.
inline const std::string& InputFileOf(ModelKind kind, const ProjectData& project) {
  return kind == ModelKind::Hydro ? project.HydroFile : project.QualFile;
}

}  // namespace lomaris
