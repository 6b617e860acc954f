#include "auxiliary/xsect_names.h"

#include <iterator>
#include <utility>

#include <fmt/format.h>

namespace lomaris {
namespace {

using Nodes = std::vector<std::string_view>;

/// What the network has for a reference by number and name.
struct Found {
  std::int32_t Node = 0;        ///< of that name, 0 for none
  std::string_view NameOfNode;  ///< empty for none
};

/// Adds to `found` what the network has for it. Of equal names the last one counts: the editor lets
/// no network have them, so they come from reaches that were copied by hand, and a copy goes in
/// downstream of what it repeats, where the water of both has come together.
void Find(const Nodes& nodes, std::int32_t number, std::string_view name, Found& found) {
  std::int32_t node = 0;
  for (const std::string_view nameOfNode : nodes) {
    ++node;
    if (node == number) found.NameOfNode = nameOfNode;
    if (nameOfNode == name) found.Node = node;
  }
}

void TellMoved(const AuxXSect& xsect, std::int32_t newNode, Ui& ui) {
  ui.ShowMessage({.Text = fmt::format("The node number associated with the cross section named "
                                      "\"{}\" was changed from {} to {}. This occurred because  "
                                      "one or more cross sections in the Hydrodynamic input file "
                                      "were inserted  or deleted.",
                                      Shown(xsect.Name), xsect.Node, newNode),
                  .Title = "Warning"});
}

void TellRenamed(const AuxXSect& xsect, std::string_view newName, Ui& ui) {
  ui.ShowMessage(
      {.Text = fmt::format("Cross section named \"{}\" was not found; using node number {} and "
                           "assigning name \"{}\". This occurred because the specified cross "
                           "section was renamed in the Hydrodynamic input file. If cross sections "
                           "were also inserted or deleted, then it is possible that the assigned "
                           "name is incorrect; please review the input file.",
                           Shown(xsect.Name), xsect.Node, newName),
       .Title = "Warning"});
}

void TellDead(std::string_view name, std::int32_t node, Ui& ui) {
  ui.ShowMessage({.Text = fmt::format(
                      "Cross section named \"Invalid Name: {}\" was not found; and node number "
                      "{} was not found. This occurred because the specified cross section "
                      "was renamed in the Hydrodynamic input file and cross sections were "
                      "also deleted, or it is possible that this auxiliary file is "
                      "incompatible with the current Hydrodynamic input file.\r\n\r\nYou may "
                      "have to edit this file with a text editor to correct the problem.",
                      Shown(name), node),
                  .Title = "Warning"});
}

/// Holds the entries of one file, in order, against the network.
class Reconciliation {
 public:
  explicit Reconciliation(const AuxLoad& load)
      : aux_(load.Aux), ui_(load.Around.Screen), nodes_(NodeNames(load.Around.Hydro)) {}

  bool FollowXSect(AuxXSect& xsect) {
    Found found;
    Find(nodes_, xsect.Node, xsect.Name, found);
    if (found.Node != 0 && found.Node != xsect.Node) {
      TellMoved(xsect, found.Node, ui_);
    } else if (xsect.Name != found.NameOfNode && !found.NameOfNode.empty()) {
      TellRenamed(xsect, found.NameOfNode, ui_);
    }
    return Follow(found, xsect.Node, xsect.Name);
  }

  /// The units of a plant share its intake, and files of several plants are rare. So what was found
  /// holds over to the next entry until it finds its own: a unit whose intake the network does not
  /// know draws its water where the unit before it does.
  ///
  /// A plant of a legacy file at the first node has none upstream to draw from. Once saved, it has
  /// an intake of node 0 without a name, which refers to nothing and so cannot be dead.
  bool FollowIntake(AuxXSect& xsect) {
    Find(nodes_, xsect.IntakeNode, xsect.IntakeName, intake_);
    const bool isFound = intake_.Node != 0 || !intake_.NameOfNode.empty();
    if (!isFound && xsect.IntakeNode == 0 && xsect.IntakeName.empty()) return true;
    return Follow(intake_, xsect.IntakeNode, xsect.IntakeName);
  }

 private:
  bool Follow(const Found& found, std::int32_t& node, std::string& name) {
    if (found.Node != 0) {
      aux_.Modified |= std::exchange(node, found.Node) != found.Node;
      return true;
    }
    if (found.NameOfNode.empty()) {
      TellDead(name, node, ui_);
      return false;
    }
    name = found.NameOfNode;
    aux_.Modified = true;
    return true;
  }

  AuxData& aux_;
  Ui& ui_;
  Nodes nodes_;
  Found intake_;
};

void TellNamesMissing(Ui& ui) {
  ui.ShowMessage(
      {.Text = "Cross section names were missing from the file (probably because this is a legacy "
               "file). Lomaris therefore inferred cross section names using available cross "
               "section numbers matched to names in the Hydrodynamic input file. To avoid "
               "potential problems caused by cross section name/number mismatches, you should "
               "resave this file after checking to see that the proper names have been assigned to "
               "each input.",
       .Title = "Warning",
       .BoxIcon = Icon::Information});
}

/// Gives an entry beyond the network the last name of it. Its number stays: a save does not hide
/// which cross section the file was made for until the user has chosen another one.
void TakeLastName(AuxXSect& xsect, const Nodes& nodes, Ui& ui) {
  if (!nodes.empty()) xsect.Name = nodes.back();
  ui.ShowMessage(
      {.Text = fmt::format("Warning: cross section number ({}) exceeds the maximum cross section "
                           "number in the Hydrodynamic input file ({}). The cross section number "
                           "has therefore been reset to the maximum allowable value and the "
                           "associated cross section name ({}) has been assigned. Verify the "
                           "correctness of this before saving the file.",
                           xsect.Node, nodes.size(), xsect.Name)});
}

void InferNames(const AuxLoad& load, std::int32_t first) {
  AuxData& aux = load.Aux;
  TellNamesMissing(load.Around.Screen);
  for (std::int32_t i = first; i <= aux.NumXSect; ++i) aux.XSect[i].Name.clear();
  TakeNamesOfNodes(aux, first, load.Around.Hydro);
  const Nodes nodes = NodeNames(load.Around.Hydro);
  for (std::int32_t i = first; i <= aux.NumXSect; ++i) {
    if (aux.XSect[i].Name.empty()) TakeLastName(aux.XSect[i], nodes, load.Around.Screen);
  }
  aux.Modified = true;
}

/// Reads the lines of an entry. False when the file ends before all of them.
bool ReadLines(AuxCursor& in, AuxXSect& xsect, bool hasIntakes) {
  if (in.AtEnd()) return false;
  xsect.Name = in.ReadWhole();
  if (!hasIntakes) return true;
  if (!in.HasLine()) return false;
  xsect.IntakeName = in.ReadWhole();
  return true;
}

}  // namespace

std::vector<std::string_view> NodeNames(const HydroInput& hydro) {
  Nodes nodes;
  for (int i = 1; i <= hydro.BranchCount; ++i) {
    const BranchRec& branch = hydro.Branches[i];
    for (int k = 1; k <= branch.XSectCount; ++k) nodes.emplace_back(branch.XSects[k].Name);
  }
  return nodes;
}

bool ReadNames(const AuxLoad& load) {
  AuxData& aux = load.Aux;
  const bool hasIntakes = KindOf(aux) == "POW";
  Reconciliation network(load);
  for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
    AuxXSect& xsect = aux.XSect[i];
    if (!ReadLines(load.In, xsect, hasIntakes)) {
      // No list, or one that breaks off. The series are whole, so the file is not refused for it.
      InferNames(load, i);
      return true;
    }
    if (!network.FollowXSect(xsect)) return false;
    if (hasIntakes && !network.FollowIntake(xsect)) return false;
  }
  return true;
}

void TakeNamesOfNodes(AuxData& aux, std::int32_t first, const HydroInput& hydro) {
  const Nodes nodes = NodeNames(hydro);
  const auto rename = [&](std::int32_t node, std::string& name) {
    if (node >= 1 && node <= std::ssize(nodes)) name = nodes[static_cast<std::size_t>(node) - 1];
  };
  for (std::int32_t i = first; i <= aux.NumXSect; ++i) {
    rename(aux.XSect[i].Node, aux.XSect[i].Name);
    rename(aux.XSect[i].IntakeNode, aux.XSect[i].IntakeName);
  }
}

void TellStaleNodes(const AuxData& aux, const HydroInput& hydro, Ui& ui) {
  const std::int64_t largest = std::ssize(NodeNames(hydro));
  bool stale = false;
  for (std::int32_t i = 1; i <= aux.NumXSect; ++i) {
    stale |= aux.XSect[i].Node < 1 || aux.XSect[i].Node > largest;
  }
  if (!stale) return;
  ui.ShowMessage({.Text = "One or more cross sections in this Auxiliary file references cross "
                          "sections which don't exist in the current Hydrodynamic input file. Do "
                          "NOT save this file or data may be lost.",
                  .Title = "Warning"});
}

}  // namespace lomaris
