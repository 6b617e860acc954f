#include "editors/typed_values.h"

#include "core/encoding.h"
#include "model/file_names.h"

namespace lomaris {

std::string PlainConstant(const std::string& text) try {
  const float value = ToSingle(text);
  return value >= 0 ? NumberText(value) : text;
} catch (const RuntimeError&) {
  return text;
}

std::string FileIn(std::string_view text) {
  const std::string name = TrimField(text);
  return name.starts_with('(') || !NamesAFile(name) ? std::string() : name;
}

std::string ShownFile(std::string_view name) {
  return NormaliseFileName(name, true);
}

void TakeFile(std::string& name, std::string_view text) {
  if (ShownFile(name) != text) name = FileIn(text);
}

int Length(std::string_view text) {
  int length = 0;
  for (std::size_t at = 0; at < text.size(); ++length) NextCodePoint(text, at);
  return length;
}

int FilledRows(const Sheet& sheet) {
  for (int row = sheet.Rows() - 1; row >= sheet.FixedRows(); --row) {
    for (int col = sheet.FixedCols(); col < sheet.Cols(); ++col) {
      if (!Trim(sheet.TextMatrix(row, col)).empty()) return row - sheet.FixedRows() + 1;
    }
  }
  return 0;
}

void KeepEmptyRow(Sheet& sheet) {
  if (FilledRows(sheet) == sheet.Rows() - sheet.FixedRows()) sheet.SetRows(sheet.Rows() + 1);
}

}  // namespace lomaris
