#include "workspace/shell_document.h"

#include <array>
#include <string_view>

namespace lomaris {
namespace {

constexpr int kLargestFailure = 32;

struct ShellFailure {
  int Result;
  std::string_view Text;
};

constexpr std::array kFailures = {
    ShellFailure{2, "File not found"},
    ShellFailure{3, "Path not found"},
    ShellFailure{5, "Access denied"},
    ShellFailure{8, "Out of memory"},
    ShellFailure{11, "Invalid EXE file or error in EXE image"},
    ShellFailure{26, "A sharing violation occurred"},
    ShellFailure{27, "Incomplete or invalid file association"},
    ShellFailure{28, "DDE Time out"},
    ShellFailure{29, "DDE transaction failed"},
    ShellFailure{30, "DDE busy"},
    ShellFailure{31, "No association for file extension"},
    ShellFailure{32, "DLL not found"},
};

std::string FailureText(int result) {
  for (const ShellFailure& failure : kFailures) {
    if (failure.Result == result) return std::string(failure.Text);
  }
  return "Unknown error";
}

}  // namespace

void ShellDocument(const std::string& path, Shell& shell, Ui& ui) {
  TellShellFailure(shell.Open(path), path, ui);
}

void TellShellFailure(int result, const std::string& path, Ui& ui) {
  if (result > kLargestFailure) return;
  ui.ShowMessage({.Text = FailureText(result) + "\r\n\r\nDocument: " + path});
}

}  // namespace lomaris
