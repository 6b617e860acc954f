#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

namespace lomaris {

// The two files through which a running model and this program talk. Both lie in the model's
// directory; all is polled, nothing is locked. The order of writing keeps it right: data first,
// then the command or the changed per cent.
//
// veskout.tmp, written by the model, is an array of records of RecLen bytes, counted from 1. This
// program writes to it only to clear the command.
//
// clang-format off
//   record   byte
//   1          1   RecLen, 32-bit integer; 0: the file is not ready yet
//              5   Command, text 100; blank when there is nothing to do
//   2          1   Rows, 32-bit integer: cross sections
//              5   Cols, 32-bit integer: result columns
//   3          1   Format, text 200: titles of the results, of the label column first, joined by "|"
//   4          1   UPDATE: DateTime, text 100, for display
//            101   UPDATE: Percent, 32-bit float, 0 to 100
//              1   other commands: Text1, text 200
//   5          1   other commands: Text2, text 200
//   6          1   other commands: Text3, text 200, or Type, 32-bit integer
//   4 + c      1   UPDATE: column c, one 32-bit float per row
// clang-format on
//
// veskin.tmp, written by this program, holds one text 100 at byte 1: "FROMVB", an answer or a wish.
//
// Integers and floats are little-endian. Texts are Windows-1252 (but a path is its own bytes), left
// aligned and blank-filled; a reader cuts at the first zero byte and trims. RecLen is at least 200
// and at least 4 * Rows.

inline constexpr std::string_view kModelFileName = "veskout.tmp";
inline constexpr std::string_view kReplyFileName = "veskin.tmp";

inline constexpr std::size_t kWordWidth = 100;
inline constexpr std::size_t kTextWidth = 200;
inline constexpr std::size_t kNumberWidth = 4;

/// Bytes of a record before its second field.
inline constexpr std::int64_t kBeforeCommand = kNumberWidth;
inline constexpr std::int64_t kBeforeCols = kNumberWidth;
inline constexpr std::int64_t kBeforePercent = kWordWidth;

/// Records of the model's file.
enum ExchangeRecord : int {
  kHeadRecord = 1,
  kSizeRecord = 2,
  kFormatRecord = 3,
  kUpdateRecord = 4,  ///< also Text1; column c follows c records behind it
  kText2Record = 5,
  kText3Record = 6,
};

/// Words between the two sides.
inline constexpr std::string_view kListening = "FROMVB";
inline constexpr std::string_view kCancel = "CANCEL";
inline constexpr std::string_view kShowResults = "SHOWRESULTS";
inline constexpr std::string_view kHideResults = "HIDERESULTS";
inline constexpr std::string_view kDone = "DONE";
inline constexpr std::string_view kOk = "OK";
inline constexpr std::string_view kYes = "YES";
inline constexpr std::string_view kNo = "NO";

/// Byte at which record `n` starts, both counted from 1. Error 9 for records too short for their
/// fields.
std::int64_t RecordPosition(std::int64_t n, std::int32_t recLen);

/// The text up to its first zero byte, without the blanks at both ends.
std::string_view TrimAtNul(std::string_view text);

/// UTF-8 text as the bytes of a field: cut to its width, and filled with blanks.
std::string FieldBytes(std::string_view text, std::size_t width);

/// A 32-bit number as it lies on disk.
template <class Number>
std::string NumberBytes(Number value) {
  static_assert(sizeof(Number) == kNumberWidth);
  std::string bytes(kNumberWidth, '\0');
  std::memcpy(bytes.data(), &value, kNumberWidth);
  return bytes;
}

/// Record 1. Both fields are written together.
std::string HeadBytes(std::int32_t recLen, std::string_view command);

/// One open file of the pair; each read and write goes to the disk's own copy. Positions count from
/// byte 1. All that fails throws RuntimeError.
class ExchangeFile {
 public:
  enum class Mode {
    Existing,  ///< reading and writing what is there
    Shared,    ///< the same, and made when it is not there
    New,       ///< made anew, empty
  };

  explicit ExchangeFile(std::string path) : path_(std::move(path)) {}
  ~ExchangeFile() { Close(); }
  ExchangeFile(const ExchangeFile&) = delete;
  ExchangeFile& operator=(const ExchangeFile&) = delete;

  const std::string& Path() const { return path_; }
  bool Exists() const;
  bool IsOpen() const { return descriptor_ >= 0; }

  /// What lies at the path must be a plain file.
  void Open(Mode mode);
  void Close();

  /// Whether the path now means another file than the open one.
  bool IsReplaced() const;

  /// Reads as many bytes as there are, up to the end of `bytes`; returns their number.
  std::size_t ReadSome(std::int64_t position, std::span<char> bytes) const;
  /// Error 62 when the file holds fewer.
  void Read(std::int64_t position, std::span<char> bytes) const;
  std::int32_t ReadLong(std::int64_t position) const;
  float ReadSingle(std::int64_t position) const;
  void ReadSingles(std::int64_t position, std::span<float> values) const;
  /// A text field as UTF-8, trimmed.
  std::string ReadText(std::int64_t position, std::size_t width) const;
  std::string ReadBytes(std::int64_t position, std::size_t size) const;

  void Write(std::int64_t position, std::string_view bytes);

 private:
  std::string path_;
  int descriptor_ = -1;
};

/// The model's file as this program reads it, while it is being written. What is not there yet, or
/// cannot be, throws RuntimeError and costs the reader one tick; sizes are claims until they have
/// been held against something else.
class ModelFile {
 public:
  struct ResultsSize {
    std::int32_t Rows = 0;
    std::int32_t Cols = 0;
  };
  struct UpdateFields {
    std::string DateTime;
    float Percent = 0;
  };

  explicit ModelFile(std::string path) : file_(std::move(path)) {}

  const std::string& Path() const { return file_.Path(); }
  bool Exists() const { return file_.Exists(); }
  bool IsOpen() const { return file_.IsOpen(); }

  /// Reads the head; false, with the file closed again, when it is not ready yet.
  bool Open();
  void Close() { file_.Close(); }

  /// Reads `RecLen` and `Command` anew. A file that the model has made anew is followed.
  void ReadHead();
  std::int32_t RecLen() const { return recLen_; }
  /// In upper case, trimmed.
  const std::string& Command() const { return command_; }

  ResultsSize ReadSize() const;
  std::string ReadFormat() const { return ReadText(kFormatRecord); }
  UpdateFields ReadUpdate() const;
  /// Fills `values` with the rows of a column, counted from 1.
  void ReadColumn(int column, std::span<float> values) const;

  /// The text at the start of a record; trimmed unless it is to stay as it is.
  std::string ReadText(int record) const { return file_.ReadText(Position(record), kTextWidth); }
  std::string ReadUntrimmedText(int record) const;
  std::int32_t ReadType() const;

  /// Writes the head back with a blank command, in one piece.
  void ClearCommand();

 private:
  std::int64_t Position(std::int64_t record) const { return RecordPosition(record, recLen_); }

  ExchangeFile file_;
  std::int32_t recLen_ = 0;
  std::string command_;
};

/// This program's file, as it writes it.
class ReplyFile {
 public:
  explicit ReplyFile(std::string path) : file_(std::move(path)) {}

  const std::string& Path() const { return file_.Path(); }

  /// Makes the file where it is not there, and says that somebody listens.
  void Open();
  void Close() { file_.Close(); }

  /// Cut to the width of the field.
  void Write(std::string_view text);
  /// The same with the bytes as they are: those of a path are its name.
  void WriteBytes(std::string bytes);

  /// Whether these bytes still stand there, so that nobody has taken them up.
  bool Holds(std::string bytes) const;

 private:
  ExchangeFile file_;
};

}  // namespace lomaris
