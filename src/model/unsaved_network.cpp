#include "model/unsaved_network.h"

#include "model/hnp_file.h"

namespace lomaris {

Answer AskToSaveNetwork(Ui& ui) {
  return ui.ShowMessage({.Text = "Save changes to Hydrodynamic input file?",
                         .Title = "Lomaris",
                         .BoxIcon = Icon::Question,
                         .BoxButtons = Buttons::YesNoCancel});
}

bool SaveNetworkFirst(HydroInput& hydro, ProjectData& project, Ui& ui) {
  if (!hydro.Dirty) return true;
  const Answer answer = AskToSaveNetwork(ui);
  if (answer == Answer::Yes) return SaveHNPFile(hydro, project, ui, hydro.FileName);
  if (answer == Answer::No) hydro = HydroInput();
  return answer == Answer::No;
}

}  // namespace lomaris
