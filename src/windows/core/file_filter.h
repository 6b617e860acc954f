#pragma once

#include <QStringList>
#include <string_view>

namespace lomaris {

/// A file dialog's filter, "Project (*.prj)|*.prj|All files (*.*)|*.*" (a last bar may stand behind
/// it), as the list that Qt's dialog takes. Each entry keeps its name and is followed by its
/// patterns in brackets, which the dialog does not show. A pattern stands there in lower and in
/// upper case, since many files come from a platform that ignores case; "*.*" is every file,
/// whether its name holds a point or not.
QStringList QtFilters(std::string_view filter);

}  // namespace lomaris
