#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "model/project_data.h"

namespace lomaris {

inline constexpr std::size_t kFileSlotCount = 10;

/// One of the places of the project window that name a file of the project. Its position in
/// `kFileSlots` addresses it everywhere: controls, menu items, dialog filters.
struct FileSlot {
  std::string_view Kind;                     ///< type key
  std::string ProjectData::*Name = nullptr;  ///< the record's field; none for a list of files

  bool IsList() const { return Name == nullptr; }
};

inline constexpr std::array<FileSlot, kFileSlotCount> kFileSlots = {{
    {"HNP", &ProjectData::HydroFile},
    {"QNP", &ProjectData::QualFile},
    {"LAT", &ProjectData::LatFileH},
    {"WIT", &ProjectData::WitFileH},
    {"XSG", &ProjectData::XSGFileH},
    {"BCF"},
    {"LAT", &ProjectData::LatFileQ},
    {"POW", &ProjectData::PowFileQ},
    {"MET"},
    {"BCF"},
}};

inline constexpr std::size_t kHydroSlot = 0;
inline constexpr std::size_t kQualSlot = 1;
inline constexpr std::size_t kLibrarySlot = 4;
inline constexpr std::size_t kBoundarySlotH = 5;
inline constexpr std::size_t kMetSlot = 8;
inline constexpr std::size_t kBoundarySlotQ = 9;

inline constexpr bool IsBoundarySlot(std::size_t slot) {
  return slot == kBoundarySlotH || slot == kBoundarySlotQ;
}

/// A row of a list of boundary files: which file, at which end of which branch.
struct BoundaryRow {
  std::string FileName;
  bool IsUpstream = false;
  int Branch = 0;

  bool operator==(const BoundaryRow&) const = default;
};

/// "name     (US Branch 3)" or "name     (DS Branch 3)".
std::string BoundaryRowText(const BoundaryRow& row);

/// The row of such a text. Error 5 when it is none.
BoundaryRow ParseBoundaryRow(std::string_view text);

/// What a slot shows, trimmed, and cut before any "(" unless it names an existing file as it
/// stands: the file that is looked for.
std::string NameBeforeRemark(std::string_view text, std::string_view besideFile = {});

}  // namespace lomaris
