#include "spreadsheet/format_string.h"

#include <algorithm>

namespace lomaris {
namespace {

FormatHead HeadOf(std::string_view piece) {
  constexpr std::pair<char, Alignment> kMarks[] = {
      {'<', Alignment::Left}, {'^', Alignment::Center}, {'>', Alignment::Right}};
  for (const auto& [mark, alignment] : kMarks) {
    if (piece.starts_with(mark)) return {std::string(piece.substr(1)), alignment};
  }
  return {std::string(piece)};
}

std::vector<FormatHead> HeadsOf(std::string_view text) {
  std::vector<FormatHead> heads;
  for (bool more = !text.empty(); more;) {
    const std::size_t end = text.find('|');
    more = end != std::string_view::npos;
    heads.push_back(HeadOf(text.substr(0, end)));
    text.remove_prefix(more ? end + 1 : text.size());
  }
  return heads;
}

}  // namespace

FormatHeads ReadFormatString(std::string_view text) {
  const std::size_t split = std::min(text.find(';'), text.size());
  return {HeadsOf(text.substr(0, split)), HeadsOf(text.substr(std::min(split + 1, text.size())))};
}

void SetHeads(Sheet& sheet, const FormatHeads& heads) {
  const int cols = std::max(static_cast<int>(heads.Cols.size()), heads.Rows.empty() ? 0 : 1);
  const int rows = std::max(static_cast<int>(heads.Rows.size()), heads.Cols.empty() ? 0 : 1);
  sheet.SetCols(std::max(sheet.Cols(), cols));
  sheet.SetRows(std::max(sheet.Rows(), rows));
  for (int col = 0; const FormatHead& head : heads.Cols) {
    if (!head.Text.empty()) sheet.SetTextMatrix(0, col, head.Text);
    sheet.SetColAlignment(col, head.Align);
    sheet.SetFixedAlignment(col++, head.Align);
  }
  for (int row = 0; const FormatHead& head : heads.Rows) {
    if (!head.Text.empty()) sheet.SetTextMatrix(row, 0, head.Text);
    ++row;
  }
}

}  // namespace lomaris
