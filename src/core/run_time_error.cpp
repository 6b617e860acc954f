#include "core/run_time_error.h"

#include <array>
#include <cerrno>
#include <new>
#include <system_error>

namespace lomaris {
namespace {

struct ErrorEntry {
  ErrorNumber Number;
  std::string_view Text;
};

constexpr std::array kErrors = {
    ErrorEntry{ErrorNumber::InvalidCall, "Invalid procedure call or argument"},
    ErrorEntry{ErrorNumber::Overflow, "Overflow"},
    ErrorEntry{ErrorNumber::OutOfMemory, "Out of memory"},
    ErrorEntry{ErrorNumber::SubscriptOutOfRange, "Subscript out of range"},
    ErrorEntry{ErrorNumber::TypeMismatch, "Type mismatch"},
    ErrorEntry{ErrorNumber::Internal, "Internal error"},
    ErrorEntry{ErrorNumber::FileNotFound, "File not found"},
    ErrorEntry{ErrorNumber::DeviceIo, "Device I/O error"},
    ErrorEntry{ErrorNumber::DiskFull, "Disk full"},
    ErrorEntry{ErrorNumber::InputPastEnd, "Input past end of file"},
    ErrorEntry{ErrorNumber::PermissionDenied, "Permission denied"},
    ErrorEntry{ErrorNumber::PathFileAccess, "Path/File access error"},
    ErrorEntry{ErrorNumber::PathNotFound, "Path not found"},
};

/// The fixed text of an error number, such as "Type mismatch" for 13.
std::string_view ErrorText(ErrorNumber number) {
  for (const ErrorEntry& entry : kErrors) {
    if (entry.Number == number) return entry.Text;
  }
  return "Application-defined or object-defined error";
}

std::string Describe(ErrorNumber number, std::string_view detail) {
  std::string text(ErrorText(number));
  if (!detail.empty()) text.append(": ").append(detail);
  return text;
}

ErrorNumber NumberOf(int errnoValue) {
  switch (errnoValue) {
    case ENOENT:
      return ErrorNumber::FileNotFound;
    case ENOTDIR:
      return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorNumber::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return ErrorNumber::DiskFull;
    case ENOMEM:
      return ErrorNumber::OutOfMemory;
    case EIO:
      return ErrorNumber::DeviceIo;
    default:
      return ErrorNumber::PathFileAccess;
  }
}

}  // namespace

RuntimeError::RuntimeError(ErrorNumber number, std::string_view detail)
    : std::runtime_error(Describe(number, detail)), number_(number) {}

RuntimeError CurrentRuntimeError() {
  try {
    throw;
  } catch (const RuntimeError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return RuntimeError(ErrorNumber::OutOfMemory);
  } catch (const std::length_error&) {
    return RuntimeError(ErrorNumber::OutOfMemory);
  } catch (const std::system_error& error) {
    return FileError(error.code().value(), error.what());
  } catch (const std::exception& error) {
    return RuntimeError(ErrorNumber::Internal, error.what());
  }
}

RuntimeError FileError(int errnoValue, std::string_view fileName) {
  std::string detail(fileName);
  const ErrorNumber number = NumberOf(errnoValue);
  if (number == ErrorNumber::PathFileAccess) {
    detail.append(" (").append(std::generic_category().message(errnoValue)).append(")");
  }
  return RuntimeError(number, detail);
}

}  // namespace lomaris
