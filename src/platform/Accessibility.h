#pragma once

#include <QString>

class QObject;

namespace kwFieldDeck {

// Names a control for assistive technology: the control (a Control or a user control) and every
// child of it that can take the focus carry the name and the description, so whichever part a
// screen reader lands on says which field it edits.
void setAccessibleText(QObject *controlOrWidget, const QString &name, const QString &description);

} // namespace kwFieldDeck
