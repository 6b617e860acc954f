#pragma once

#include <string>

#include <gtest/gtest.h>

#include "core/files.h"
#include "editors/surroundings.h"
#include "model/hnp_file.h"
#include "support/fake_ports.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

namespace lomaris {

/// What an editor needs, in a folder with the example's files.
class EditorTest : public testing::Test {
 protected:
  EditorTest() {
    for (const char* name : {"corvane_river.hnp", "corvane_shapes.xsg"}) {
      folder.Write(name, Example(name));
    }
    project.HydroFile = "corvane_river.hnp";
    project.LatFileH = "corvane_flows.lat";
    project.WitFileH = "corvane_works.wit";
    project.XSGFileH = "corvane_shapes.xsg";
    project.BCCountH = 3;
    project.BCFilesH[1].Downstream = "corvane_gage.bcf";
    project.BCFilesH[2].Upstream = "ashlar_dam.bcf";
    project.BCFilesH[3].Upstream = "quillet_meadow.bcf";
  }

  /// The example's network and what the project says of its water quality.
  void LoadQuality() {
    folder.Write("corvane_quality.qnp", Example("corvane_quality.qnp"));
    project.QualFile = "corvane_quality.qnp";
    project.LatFileQ = "corvane_loads.lat";
    project.PowFileQ = "corvane_plant.pow";
    project.MetCount = 1;
    project.MetFiles[1] = "corvane_weather.met";
    project.BCCountQ = 3;
    project.BCFilesQ[2].Upstream = "ashlar_dam.bcf";
    project.BCFilesQ[3].Upstream = "quillet_meadow.bcf";
    LoadHNPFile(hydro, project, ui, project.HydroFile);
  }

  static std::string Example(const std::string& name) {
    return ReadWholeFile(LOMARIS_EXAMPLES "/three_branches/" + name);
  }

  TempFolder folder;
  ScriptedUi ui;
  FakeSettings settings;
  FakeWorkbench workbench;
  ProjectData project;
  HydroInput hydro;
  QualInput qual;
  EditorSession session;
  Tables tables = InitTables(ui);
  EditorSurroundings around{project, hydro, qual, tables, session, ui, settings, workbench};
};

}  // namespace lomaris
