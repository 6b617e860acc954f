#pragma once

#include <string>
#include <vector>

#include "model/hydro_input.h"
#include "model/kinetic_catalogue.h"
#include "model/project_data.h"
#include "model/qual_input.h"

namespace lomaris {

/// A water quality input for a network: its branches, cross sections, period and print steps, the
/// files that the project names, and the default of every coefficient. All concentrations are 0.
QualInput NewQualInput(const HydroInput& hydro, const ProjectData& project,
                       const KineticCatalogue& catalogue);

/// Whether there is a record for each branch and cross section of the network, and no other. Their
/// names may differ.
bool FitsNetwork(const QualInput& qual, const HydroInput& hydro);

/// The names of a network's cross sections: by them records are known to stand for the same ones
/// as before.
struct NetworkNames {
  std::string FileName;
  std::vector<std::vector<std::string>> XSects;  ///< by branch and place, from 0

  bool operator==(const NetworkNames&) const = default;
};
NetworkNames NamesOf(const HydroInput& hydro);

/// Whether each cross section stands where it stood. One between the same two neighbours is still
/// itself when it has got another name.
bool KeepsPlaces(const NetworkNames& before, const NetworkNames& now);

/// Brings the branches and cross sections in line with the network: their records stand for those
/// of `before`, and go with them within each branch. A new cross section gets the values of the one
/// before it, the first one those of the one behind, and those of a new branch are the defaults.
void FollowNetwork(QualInput& qual, const NetworkNames& before, const HydroInput& hydro,
                   const KineticCatalogue& catalogue);

/// Whether each branch and cross section has the name that it has in the network, with which it
/// has to fit.
bool HasNetworkNames(const QualInput& qual, const HydroInput& hydro);
void TakeNetworkNames(QualInput& qual, const HydroInput& hydro);

/// The formula by which the model computes reaeration at a cross section, as the coefficients
/// choose it.
std::string ReaerationFormula(const BoundedArray<float>& global, const BoundedArray<float>& branch,
                              const BoundedArray<float>& xsect);

}  // namespace lomaris
