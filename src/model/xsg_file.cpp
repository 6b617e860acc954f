#include "model/xsg_file.h"

#include <algorithm>

#include "core/encoding.h"
#include "model/input_file.h"

namespace lomaris {
namespace {

constexpr std::string_view kNoDescription = "Unknown";
constexpr int kMostWords = 100;
constexpr int kNameWidth = 8;
constexpr std::string_view kBehindName = "    ";
constexpr std::size_t kShortestEntry = 4;  // "A", "0" and their line ends
constexpr std::size_t kShortestPoint = 1;  // an empty line

/// Name and description from the next line. False for a line without a name.
bool ReadNameLine(ReaderState& in, LibrarySection& section, Ui& ui) {
  std::string line(in.ReadRawLine());
  std::erase(line, '\r');  // a stray one is no part of a word
  CollapseWhitespace(line);
  SplitFields(line, '\t', kMostWords, kMostWords, ui,
              [&](std::size_t place, std::string_view word) {
                if (place == 0) {
                  section.Name = TrimField(word);
                } else {
                  section.Description.append(word).append(1, ' ');
                }
                return true;
              });
  if (section.Description.empty()) section.Description = kNoDescription;
  return !section.Name.empty();
}

void ReadPoints(ReaderState& in, LibrarySection& section) {
  in.ReadCountedLine(section.PointCount);
  section.Points = BoundedArray<XSectPoint>(1, in.Plausible(section.PointCount, kShortestPoint));
  for (XSectPoint& point : section.Points) in.ReadCountedLine(point.Depth, point.Station);
}

bool ReadLibrary(ReaderState& in, XSectLibrary& library, Ui& ui) {
  if (in.AtEnd()) return true;  // an empty file is an empty library
  for (std::string& title : library.Title) in.ReadLine(title);
  in.ReadCountedLine(library.XSectCount);
  in.Plausible(library.XSectCount, kShortestEntry);
  for (int i = 1; i <= library.XSectCount; ++i) {
    library.XSects.Resize(i);  // as they come: a count is cheaper to write than its entries
    LibrarySection& section = library.XSects[i];
    if (!ReadNameLine(in, section, ui)) {
      ui.ShowMessage({.Text = "Invalid input reading cross section name and description."});
      return false;
    }
    ReadPoints(in, section);
  }
  return true;
}

void AppendNameLine(std::string& out, const LibrarySection& section) {
  const std::string name = TrimField(section.Name);
  std::size_t end = 0;
  int width = 0;
  for (; width < kNameWidth && end < name.size(); ++width) NextCodePoint(name, end);
  out.append(name, 0, end).append(static_cast<std::size_t>(kNameWidth - width), ' ');
  out += kBehindName;
  const bool described = section.Description != kNoDescription;
  AppendLine(out, described ? JoinLines(section.Description) : std::string());
}

void AppendSection(std::string& out, const LibrarySection& section) {
  AppendNameLine(out, section);
  AppendLine(out, PrintedNumber(section.PointCount));
  for (int i = 1; i <= section.PointCount; ++i) {
    AppendTwoDecimals(out, section.Points[i].Depth);
    out += '\t';
    AppendTwoDecimals(out, section.Points[i].Station);
    out += kLineBreak;
  }
}

/// Refuses an entry that the reader would refuse, or take for another.
void CheckReadable(const LibrarySection& section, int number) {
  const std::string who = "cross section " + NumberText(number) + " of the library ";
  const std::string name = TrimField(section.Name);
  if (name.empty()) throw RuntimeError(ErrorNumber::InvalidCall, who + "has no name");
  if (name.find(' ') != std::string::npos) {
    throw RuntimeError(ErrorNumber::InvalidCall, who + "has a blank in its name, " + name);
  }
  std::string words = section.Description;
  CollapseWhitespace(words);
  if (std::count(words.begin(), words.end(), '\t') + 2 > kMostWords) {
    throw RuntimeError(ErrorNumber::InvalidCall, who + "has a description of more than " +
                                                     NumberText(kMostWords - 1) + " words");
  }
}

std::string LibraryText(const XSectLibrary& library) {
  std::string out;
  for (const std::string& title : library.Title) AppendLine(out, Trim(JoinLines(title)));
  AppendLine(out, PrintedNumber(library.XSectCount));
  for (int i = 1; i <= library.XSectCount; ++i) {
    CheckReadable(library.XSects[i], i);
    AppendSection(out, library.XSects[i]);
  }
  return out;
}

}  // namespace

bool LoadXSGFile(XSectLibrary& library, const ProjectData& project, Ui& ui,
                 const std::string& fileName) {
  const std::string name(Trim(fileName));
  if (name.empty()) return true;
  const auto path = FindInputFile("Cross section library file", name, project.FileName, ui);
  if (!path) return true;

  XSectLibrary loaded;
  loaded.FileName = name;
  loaded.OnDisk = StampOf(*path);
  const bool read =
      ReadInputFile(*path, name, ui, [&](ReaderState& in) { return ReadLibrary(in, loaded, ui); });
  if (read) library = std::move(loaded);
  return read;
}

bool SaveXSGFile(XSectLibrary& library, const ProjectData& project, Ui& ui,
                 const std::string& fileName) {
  const std::string name(Trim(fileName));
  const auto format = [&] { return LibraryText(library); };
  if (!WriteInputFile(name, project.FileName, "SaveXSGFile", ui, format)) return false;
  library.Dirty = false;
  library.FileName = name;
  library.OnDisk = StampOf(name, project.FileName);
  return true;
}

}  // namespace lomaris
