#pragma once

#include <QString>

#include <functional>

class QObject;
class QWidget;

namespace kwFieldDeck {

class Control;

// The library's application title, from which the class identifiers of its own controls are
// built ("kwFieldDeck.kwSimpleCheck").
QString libraryTitle();

// Creates controls by class identifier ("VB.TextBox", "MSComCtl2.DTPicker",
// "kwFieldDeck.kwSimpleCheck"), compared without regard to case.
namespace ClassFactory {

using Creator = std::function<Control *(const QString &name, QObject *owner)>;

bool registerClass(const QString &classId, Creator creator);
bool isRegistered(const QString &classId);

// The new control, not yet in any container. An identifier that nothing registered fails with
// error 429 naming it.
Control *create(const QString &classId, const QString &name, QObject *owner);

// The control that a container sees around a user control (its extender).
Control *wrapUserControl(QWidget *userControl, const QString &name, QObject *owner);

// Registers a user control: created fresh, with its new-instance properties, and wrapped in the
// control its container sees.
template <typename T>
bool registerUserControl(const QString &classId)
{
    return registerClass(classId, [](const QString &name, QObject *owner) -> Control * {
        auto *userControl = new T;
        return wrapUserControl(userControl, name, owner);
    });
}

} // namespace ClassFactory
} // namespace kwFieldDeck
