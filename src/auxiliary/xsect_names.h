#pragma once

#include <string_view>
#include <vector>

#include "auxiliary/aux_load.h"

namespace lomaris {

// An entry of an auxiliary file means its cross section twice over: by node number in the header,
// by name in the list at the end. The network may have changed since the file was written. Names
// are what people keep, so an entry follows its name; its number counts when the network has no
// such name.

/// The names of the network's cross sections through all branches in order: that of node k is in
/// place k - 1. They live as long as the network.
std::vector<std::string_view> NodeNames(const HydroInput& hydro);

/// Takes the names at the end of a file, where each entry then follows its name or its number, and
/// tells what changed. Entries that the list does not reach have names by their numbers. The flags
/// of the nodes stay as the header set them: see `MarkNodesOfEntries`.
///
/// False, having told it, when the network has neither name nor number of an entry.
bool ReadNames(const AuxLoad& load);

/// Names the entries from `first` on, and their intakes, as the network names their nodes; one that
/// it does not have keeps its name.
void TakeNamesOfNodes(AuxData& aux, std::int32_t first, const HydroInput& hydro);

/// Warns of entries that are at no node of the network. For all kinds but BCF and BMD, once the
/// user sees the file.
void TellStaleNodes(const AuxData& aux, const HydroInput& hydro, Ui& ui);

}  // namespace lomaris
