#pragma once

#include <string>

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

/// Brings the branches and cross sections in line with the network, by the names of the cross
/// sections within each branch. A new one gets the values of the one before it, the first one those
/// of the one behind, and those of a new branch are the defaults.
void FollowNetwork(QualInput& qual, const HydroInput& hydro, const KineticCatalogue& catalogue);

/// Whether each branch and cross section has the name that it has in the network, with which it
/// has to fit.
bool HasNetworkNames(const QualInput& qual, const HydroInput& hydro);
void TakeNetworkNames(QualInput& qual, const HydroInput& hydro);

/// The formula by which the model computes reaeration at a cross section, as the coefficients
/// choose it.
std::string ReaerationFormula(const BoundedArray<float>& global, const BoundedArray<float>& branch,
                              const BoundedArray<float>& xsect);

}  // namespace lomaris
