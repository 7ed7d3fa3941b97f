#include "runtime/ClassFactory.h"

#include "runtime/CaselessKey.h"
#include "runtime/Control.h"
#include "runtime/Error.h"

#include <QHash>

namespace kwFieldDeck {

QString libraryTitle()
{
    return QStringLiteral("kwFieldDeck");
}

namespace ClassFactory {

namespace {
QHash<CaselessKey, Creator> &registry()
{
    static QHash<CaselessKey, Creator> classes;
    return classes;
}

} // namespace

bool registerClass(const QString &classId, Creator creator)
{
    registry().insert({ classId }, std::move(creator));
    return true;
}

bool isRegistered(const QString &classId)
{
    return registry().contains({ classId });
}

Control *create(const QString &classId, const QString &name, QObject *owner)
{
    const auto found = registry().constFind({ classId });
    if (found == registry().constEnd())
        raise(ErrCannotCreateObject,
            QStringLiteral("Invalid class string: '%1' is not registered").arg(classId));
    return (*found)(name, owner);
}

Control *wrapUserControl(QWidget *userControl, const QString &name, QObject *owner)
{
    return new Control(userControl, name, owner);
}

} // namespace ClassFactory
} // namespace kwFieldDeck
