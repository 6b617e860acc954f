#pragma once

#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "auxiliary/aux_file.h"
#include "support/fake_aux_window.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {

/// Auxiliary files beside a network of four cross sections: Head, Mill and Weir in the first
/// branch, Brook in the second.
class AuxFiles : public testing::Test {
 protected:
  AuxFiles() {
    network_.BranchCount = 2;
    AddBranch(1, {"Head", "Mill", "Weir"});
    AddBranch(2, {"Brook"});
  }

  void AddBranch(int branch, std::initializer_list<const char*> names) {
    BranchRec& record = network_.Branches[branch];
    record.XSectCount = static_cast<std::int16_t>(names.size());
    record.XSects = {};
    for (const char* name : names) {
      record.XSects.Resize(record.XSects.Count() + 1);
      record.XSects[record.XSects.Count()].Name = name;
    }
  }

  bool Load(const std::string& fileName, const std::string& text) {
    folder_.Write(fileName, text);
    return Load(fileName);
  }
  bool Load(const std::string& fileName) {
    aux_.FileName = fileName;
    return LoadAUXFile(aux_, {network_, project_, tables_, ui_, &window_});
  }
  bool LoadHeader(const std::string& fileName) {
    aux_.FileName = fileName;
    return LoadAUXFile(aux_, {network_, project_, tables_, ui_});
  }
  bool Save() { return SaveAUXFile(aux_, {network_, project_, tables_, ui_, &window_}); }

  TempFolder folder_;
  ScriptedUi ui_;
  Tables tables_ = InitTables(ui_);
  HydroInput network_;
  ProjectData project_;
  FakeAuxWindow window_;
  AuxData aux_;
};

}  // namespace lomaris
