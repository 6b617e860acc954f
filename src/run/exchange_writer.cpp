#include "run/exchange_writer.h"

#include <algorithm>
#include <utility>

#include "core/run_time_error.h"

namespace lomaris {

// --- The model's file

ModelFileWriter::ModelFileWriter(std::string path, std::int32_t rows)
    : file_(std::move(path)),
      recLen_(std::max(static_cast<std::int32_t>(kTextWidth),
                       rows * static_cast<std::int32_t>(kNumberWidth))) {
  file_.Open(ExchangeFile::Mode::New);
}

void ModelFileWriter::SetSize(std::int32_t rows, std::int32_t cols) {
  file_.Write(Position(kSizeRecord), NumberBytes(rows) + NumberBytes(cols));
}

void ModelFileWriter::SetColumn(int column, std::span<const float> values) {
  if (values.size_bytes() > static_cast<std::size_t>(recLen_)) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "a column is longer than its record");
  }
  file_.Write(Position(kUpdateRecord + std::int64_t{column}),
              {reinterpret_cast<const char*>(values.data()), values.size_bytes()});
}

void ModelFileWriter::SetUpdate(std::string_view dateTime, float percent) {
  file_.Write(Position(kUpdateRecord), FieldBytes(dateTime, kWordWidth) + NumberBytes(percent));
}

void ModelFileWriter::SetText(int record, std::string_view text) {
  file_.Write(Position(record), FieldBytes(text, kTextWidth));
}

void ModelFileWriter::SetType(std::int32_t type) {
  file_.Write(Position(kText3Record), NumberBytes(type));
}

void ModelFileWriter::SetCommand(std::string_view command) {
  file_.Write(1, HeadBytes(recLen_, command));
}

std::string ModelFileWriter::Command() const {
  return file_.ReadText(1 + kBeforeCommand, kWordWidth);
}

// --- The answers

ReplyReader::ReplyReader(std::string path) : file_(std::move(path)) {
  file_.Open(ExchangeFile::Mode::Existing);
}

std::string ReplyReader::Read() const {
  return file_.ReadText(1, kWordWidth);
}

void ReplyReader::Blank() {
  file_.Write(1, FieldBytes({}, kWordWidth));
}

}  // namespace lomaris
