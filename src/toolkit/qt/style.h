/// The one style sheet of all windows.
#pragma once

class QApplication;

namespace tandrel
{

/// Type, palette and style sheet; figures are tabular so that times don't dance.
void applyStyle(QApplication& application);

} // namespace tandrel
