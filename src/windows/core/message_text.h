#pragma once

#include <QString>
#include <string_view>

namespace lomaris {

/// A text as a message box shows it. Carriage return and line feed are one line break. A text that
/// would make a box larger than the screen (a reader shows the line that it stumbled over, and a
/// damaged file may be one endless line) loses its middle to an ellipsis: the start says what is
/// wrong and the end says what comes of it. Words too long for a line may break anywhere.
QString MessageText(std::string_view text);

}  // namespace lomaris
