#include "run/exchange_files.h"

#include <array>
#include <bit>
#include <cerrno>
#include <limits>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/encoding.h"
#include "core/run_time_error.h"
#include "core/text.h"

namespace lomaris {
namespace {

static_assert(std::endian::native == std::endian::little, "numbers are taken as they lie on disk");
static_assert(std::numeric_limits<float>::is_iec559 && sizeof(float) == kNumberWidth);

std::string_view UpToNul(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

}  // namespace

std::int64_t RecordPosition(std::int64_t n, std::int32_t recLen) {
  if (recLen < static_cast<std::int32_t>(kTextWidth)) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                       "records of " + std::to_string(recLen) + " bytes");
  }
  return (n - 1) * recLen + 1;
}

std::string_view TrimAtNul(std::string_view text) {
  return Trim(UpToNul(text));
}

std::string FieldBytes(std::string_view text, std::size_t width) {
  std::string bytes = FileFromText(std::string(text));
  bytes.resize(width, ' ');
  return bytes;
}

std::string HeadBytes(std::int32_t recLen, std::string_view command) {
  return NumberBytes(recLen) + FieldBytes(command, kWordWidth);
}

// --- One open file

bool ExchangeFile::Exists() const {
  struct stat status = {};
  return ::stat(path_.c_str(), &status) == 0;
}

void ExchangeFile::Open(Mode mode) {
  Close();
  int flags = O_RDWR | O_CLOEXEC | O_NONBLOCK;  // a pipe must not keep the program waiting
  if (mode != Mode::Existing) flags |= O_CREAT;
  if (mode == Mode::New) flags |= O_TRUNC;
  descriptor_ = ::open(path_.c_str(), flags, 0666);
  struct stat status = {};
  if (!IsOpen() || ::fstat(descriptor_, &status) != 0) throw FileError(errno, path_);
  if (S_ISREG(status.st_mode)) return;
  Close();
  throw RuntimeError(ErrorNumber::PathFileAccess, path_ + " is not a plain file");
}

void ExchangeFile::Close() {
  if (IsOpen()) ::close(std::exchange(descriptor_, -1));
}

bool ExchangeFile::IsReplaced() const {
  struct stat open = {};
  struct stat there = {};
  if (::fstat(descriptor_, &open) != 0 || ::stat(path_.c_str(), &there) != 0) return true;
  return open.st_ino != there.st_ino || open.st_dev != there.st_dev;
}

std::size_t ExchangeFile::ReadSome(std::int64_t position, std::span<char> bytes) const {
  std::size_t size = 0;
  while (size < bytes.size()) {
    const ssize_t got = ::pread(descriptor_, bytes.data() + size, bytes.size() - size,
                                position - 1 + static_cast<std::int64_t>(size));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) throw FileError(errno, path_);
    if (got == 0) break;
    size += static_cast<std::size_t>(got);
  }
  return size;
}

void ExchangeFile::Read(std::int64_t position, std::span<char> bytes) const {
  if (ReadSome(position, bytes) < bytes.size()) {
    throw RuntimeError(ErrorNumber::InputPastEnd, path_);
  }
}

std::int32_t ExchangeFile::ReadLong(std::int64_t position) const {
  std::array<char, kNumberWidth> bytes;
  Read(position, bytes);
  return std::bit_cast<std::int32_t>(bytes);
}

float ExchangeFile::ReadSingle(std::int64_t position) const {
  float value = 0;
  ReadSingles(position, {&value, 1});
  return value;
}

void ExchangeFile::ReadSingles(std::int64_t position, std::span<float> values) const {
  Read(position, {reinterpret_cast<char*>(values.data()), values.size_bytes()});
}

std::string ExchangeFile::ReadText(std::int64_t position, std::size_t width) const {
  return TextFromFile(std::string(TrimAtNul(ReadBytes(position, width))));
}

std::string ExchangeFile::ReadBytes(std::int64_t position, std::size_t size) const {
  std::string bytes(size, '\0');
  Read(position, bytes);
  return bytes;
}

void ExchangeFile::Write(std::int64_t position, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::pwrite(descriptor_, bytes.data(), bytes.size(), position - 1);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw FileError(written == 0 ? ENOSPC : errno, path_);
    bytes.remove_prefix(static_cast<std::size_t>(written));
    position += written;
  }
}

// --- The model's file

bool ModelFile::Open() {
  file_.Open(ExchangeFile::Mode::Existing);
  std::array<char, kNumberWidth> recLen = {};
  file_.ReadSome(1, recLen);  // a file without its first bytes is not ready either
  if (std::bit_cast<std::int32_t>(recLen) != 0) return true;
  Close();
  return false;
}

void ModelFile::ReadHead() {
  if (file_.IsReplaced()) file_.Open(ExchangeFile::Mode::Existing);
  recLen_ = file_.ReadLong(1);
  command_ = UpperCase(file_.ReadText(1 + kBeforeCommand, kWordWidth));
}

ModelFile::ResultsSize ModelFile::ReadSize() const {
  const std::int64_t start = Position(kSizeRecord);
  return {file_.ReadLong(start), file_.ReadLong(start + kBeforeCols)};
}

ModelFile::UpdateFields ModelFile::ReadUpdate() const {
  const std::int64_t start = Position(kUpdateRecord);
  return {file_.ReadText(start, kWordWidth), file_.ReadSingle(start + kBeforePercent)};
}

void ModelFile::ReadColumn(int column, std::span<float> values) const {
  const std::int64_t start = Position(kUpdateRecord + std::int64_t{column});
  if (values.size_bytes() > static_cast<std::size_t>(recLen_)) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "a column is longer than its record");
  }
  file_.ReadSingles(start, values);
}

std::string ModelFile::ReadUntrimmedText(int record) const {
  return TextFromFile(std::string(UpToNul(file_.ReadBytes(Position(record), kTextWidth))));
}

std::int32_t ModelFile::ReadType() const {
  return file_.ReadLong(Position(kText3Record));
}

void ModelFile::ClearCommand() {
  file_.Write(1, HeadBytes(recLen_, {}));
}

// --- The answers

void ReplyFile::Open() {
  file_.Open(ExchangeFile::Mode::Shared);
  Write(kListening);
}

void ReplyFile::Write(std::string_view text) {
  file_.Write(1, FieldBytes(text, kWordWidth));
}

void ReplyFile::WriteBytes(std::string bytes) {
  bytes.resize(kWordWidth, ' ');
  file_.Write(1, bytes);
}

bool ReplyFile::Holds(std::string bytes) const {
  bytes.resize(kWordWidth, ' ');
  return file_.ReadBytes(1, kWordWidth) == bytes;
}

}  // namespace lomaris
