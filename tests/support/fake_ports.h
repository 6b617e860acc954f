#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "core/ports/shell.h"
#include "core/ports/workbench.h"

namespace lomaris {

class FakeWorkbench : public Workbench {
 public:
  std::set<std::string> Editors;
  std::vector<EditRequest> Opened;
  std::function<void()> OnFileEdit = [] {};
  int Closed = 0;
  bool LetClose = true;

  bool OffersEditor(const std::string& kind) const override { return Editors.contains(kind); }
  void FileEdit(const EditRequest& request) override {
    Opened.push_back(request);
    OnFileEdit();
  }
  bool CloseOtherWindows() override {
    ++Closed;
    return LetClose;
  }
  void RefreshProjectWindow() override {}
};

class FakeShell : public Shell {
 public:
  int Result = 33;
  std::vector<std::string> Opened;

  int Open(const std::string& document) override {
    Opened.push_back(document);
    return Result;
  }
  int OpenText(const std::string& fileName) override { return Open(fileName); }
};

}  // namespace lomaris
