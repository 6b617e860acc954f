#pragma once

#include <QTabBar>
#include <functional>

namespace lomaris {

/// Lets the user turn the pages of a tab bar only where `mayTurn` agrees: not away from a cell
/// whose text is refused, which would go unseen.
void GuardPages(QTabBar& bar, std::function<bool()> mayTurn);

}  // namespace lomaris
