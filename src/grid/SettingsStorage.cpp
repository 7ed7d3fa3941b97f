// kwPropertyControl: the values of all fields kept as one text in the per-user settings store.

#include "grid/kwPropertyControl_p.h"

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "runtime/Error.h"
#include "runtime/MessageBox.h"
#include "runtime/SettingsStore.h"
#include "runtime/Text.h"
#include "runtime/Values.h"

#include <QStringList>

namespace kwFieldDeck {

namespace {

const QString CRLF = QStringLiteral("\r\n");
const QString LineBreakMarker = QStringLiteral("%CRLF%");

// The three names of the stored text, blanks trimmed; false after the message for the first one
// that is empty.
bool StoreAddress(QString &AppName, QString &Section, QString &Setting)
{
    AppName = TrimBlanks(AppName);
    Section = TrimBlanks(Section);
    Setting = TrimBlanks(Setting);
    const char *missing = AppName.isEmpty() ? "AppName is not optional!"
        : Section.isEmpty()                 ? "Section is not optional!"
        : Setting.isEmpty()                 ? "Setting is not optional!"
                                            : nullptr;
    if (!missing)
        return true;
    MsgBox(QString::fromLatin1(missing), MsgBoxStyle::Critical | MsgBoxStyle::OKOnly,
        QStringLiteral("kwPropertyControl"));
    return false;
}

} // namespace

void kwPropertyControlPrivate::SaveValuesToRegistry(
    const QString &AppName, const QString &Section, const QString &Setting)
{
    trap("Sub 'SaveValuesToRegistry' of User Control 'kwPropertyControl'", [&] {
        QString app = AppName, section = Section, setting = Setting;
        if (!StoreAddress(app, section, setting))
            return;
        // Only CR LF pairs are marked; names, "=" and lone line-break characters are written as
        // they are.
        QString stored;
        for (Field *field : *require(Fields()))
            stored += CRLF + field->Name() + QLatin1Char('=')
                + textOf(field->Value()).replace(CRLF, LineBreakMarker);
        stored.remove(0, 2);
        SettingsStore::SaveSetting(app, section, setting, stored);
    });
}

void kwPropertyControlPrivate::GetValuesFromRegistry(
    const QString &AppName, const QString &Section, const QString &Setting)
{
    trap("Sub 'GetValuesFromRegistry' of User Control 'kwPropertyControl'", [&] {
        QString app = AppName, section = Section, setting = Setting;
        if (!StoreAddress(app, section, setting))
            return;
        const QString stored = SettingsStore::GetSetting(app, section, setting, QString());
        if (stored.isEmpty())
            return;
        kwFieldDeck::Fields &fields = *require(Fields());
        for (const QString &line : stored.split(CRLF)) {
            // Only the first "=" separates; a line without one is both the name and the value,
            // as intended.
            const qsizetype equals = line.indexOf(QLatin1Char('='));
            const QString name = equals < 0 ? line : line.left(equals);
            // A name that no field has is reported by the lookup and skipped.
            Field *field = fields.Item(textValue(name));
            if (!field)
                continue;
            QString value = equals < 0 ? line : line.mid(equals + 1);
            field->setValue(textValue(value.replace(LineBreakMarker, CRLF)));
        }
    });
}

} // namespace kwFieldDeck
