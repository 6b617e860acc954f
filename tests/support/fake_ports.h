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
  std::set<std::string> Edited;  ///< files in other windows
  std::vector<EditRequest> Opened;
  std::function<void()> OnFileEdit = [] {};
  int Closed = 0;
  bool LetClose = true;
  bool Edits = false;
  bool LetRelease = true;
  std::function<void()> OnClose = [] {};
  std::vector<std::string> Unsaved;
  std::vector<std::string> Notices;

  bool OffersEditor(const std::string& kind) const override { return Editors.contains(kind); }
  void FileEdit(const EditRequest& request) override {
    Opened.push_back(request);
    OnFileEdit();
  }
  bool EditsFile(const std::string& fileName) const override { return Edited.contains(fileName); }
  std::vector<std::string> UnsavedFiles() override { return Unsaved; }
  bool CloseOtherWindows() override {
    ++Closed;
    OnClose();
    return LetClose && LetRelease;
  }
  void RefreshProjectWindow() override {}
  bool EditsNetwork() const override { return Edits; }
  bool ReleaseNetwork() override { return LetRelease; }
  void LookupsRenamed(const std::string& from, const std::string& to,
                      const std::vector<std::string>& xsects) override {
    Notices.push_back(from + " to " + to + " in " + std::to_string(xsects.size()));
  }
  void LibrarySaved(const std::string& fileName) override {
    Notices.push_back("saved " + fileName);
  }
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
