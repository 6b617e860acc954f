#pragma once

#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>

namespace lomaris {

/// The program's classic error numbers. Support and the manuals speak of failures by them.
enum class ErrorNumber : int {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  Internal = 51,
  FileNotFound = 53,
  DeviceIo = 57,
  DiskFull = 61,
  InputPastEnd = 62,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
};

/// A failure that a person is told of: a classic number and a text that is ready to be shown.
class RuntimeError : public std::runtime_error {
 public:
  /// The number's fixed text, followed by ": " and `detail` when there is one.
  explicit RuntimeError(ErrorNumber number, std::string_view detail = {});

  int Number() const { return static_cast<int>(number_); }
  std::string Description() const { return what(); }

 private:
  ErrorNumber number_;
};

/// The exception in flight as a RuntimeError: lack of memory is number 7, and what none of our
/// routines threw is number 51 with its own text.
RuntimeError CurrentRuntimeError();

/// The failure of a system call on a file, by `errno` value: number and the file's name.
RuntimeError FileError(int errnoValue, std::string_view fileName);

}  // namespace lomaris
