#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "run/exchange_files.h"

namespace lomaris {

/// The model's file as a model writes it; the layout is that of exchange_files.h. A new file is not
/// ready until its first command: fill what the command needs, then set it. All that fails throws
/// RuntimeError.
class ModelFileWriter {
 public:
  /// Makes the file anew. `rows` is the number of results in a column: it sets the record length.
  ModelFileWriter(std::string path, std::int32_t rows);

  std::int32_t RecLen() const { return recLen_; }

  void SetSize(std::int32_t rows, std::int32_t cols);
  void SetFormat(std::string_view titles) { SetText(kFormatRecord, titles); }
  /// A column, counted from 1; at most as long as a record.
  void SetColumn(int column, std::span<const float> values);
  void SetUpdate(std::string_view dateTime, float percent);
  void SetText(int record, std::string_view text);
  void SetType(std::int32_t type);

  void SetCommand(std::string_view command);
  /// Blank when it has been cleared.
  std::string Command() const;

 private:
  std::int64_t Position(std::int64_t record) const { return RecordPosition(record, recLen_); }

  ExchangeFile file_;
  std::int32_t recLen_;
};

/// The answers as a model reads them.
class ReplyReader {
 public:
  /// Error 53 when nobody listens: the file is not there.
  explicit ReplyReader(std::string path);

  /// The last answer or wish, trimmed.
  std::string Read() const;

  /// Blanks the field, so that the next answer can be told from the last one.
  void Blank();

 private:
  ExchangeFile file_;
};

}  // namespace lomaris
