#pragma once

#include <QWidget>
#include <functional>

namespace lomaris {

/// Runs `work` when the user has left a field for another one: not when a menu is opened, another
/// window comes forward or the field's own goes. It runs after the focus has moved, as a message in
/// between would leave it in neither field.
void OnLeaving(QWidget& field, std::function<void()> work);

}  // namespace lomaris
