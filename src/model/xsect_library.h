#pragma once

#include <cstdint>
#include <string>

#include "core/bounded_array.h"
#include "core/files.h"

namespace lomaris {

/// One surveyed point of a cross section.
struct XSectPoint {
  float Station = 0;  ///< ft, from the left end of the section
  float Depth = 0;    ///< ft

  bool operator==(const XSectPoint&) const = default;
};

/// One channel shape.
struct LibrarySection {
  std::string Name;         ///< no blanks; 8 characters survive a save
  std::string Description;  ///< free text
  std::int32_t PointCount = 0;
  BoundedArray<XSectPoint> Points;  ///< 1 to PointCount

  bool operator==(const LibrarySection&) const = default;
};

/// A library of channel shapes, which the cross sections of a network look up by name.
struct XSectLibrary {
  bool Dirty = false;  ///< unsaved changes
  std::string FileName;
  BoundedArray<std::string> Title{1, 3};  ///< title lines, kept as they are
  std::int32_t XSectCount = 0;
  BoundedArray<LibrarySection> XSects;  ///< 1 to XSectCount
  FileStamp OnDisk = {};                ///< the file as it was read or written last

  bool operator==(const XSectLibrary&) const = default;
};

}  // namespace lomaris
