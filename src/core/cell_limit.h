#pragma once

#include <cstdint>

namespace lomaris {

/// Cells that a table may have. Time series are limited by it too, since a grid shows them.
inline constexpr std::int64_t kMostCells = 350'000;

}  // namespace lomaris
