#pragma once

#include <QString>

namespace kwFieldDeck {

// The per-user settings store: one text value per application name, section and key, kept in
// one INI file per application under the user's configuration folder
// (kwFieldDeck/<application>.ini). Any text round-trips as a section, key or value. Names are
// compared without regard to letter case, as the platform's own per-user store does, and the
// spelling first written is kept.
namespace SettingsStore {

// The stored text, or the default when there is none or the store cannot be read.
QString GetSetting(const QString &appName, const QString &section, const QString &key,
    const QString &defaultValue = QString());

// Stores the text, replacing what was there. The file is replaced atomically; a store that
// cannot be written fails with error 75 and leaves the previous file whole. A file that holds
// lines the store cannot read is kept whole beside the new one (<file>.damaged, or .damaged.N
// when that is taken): the text and every readable value are stored, and an error report 75,
// which ends nothing, names the kept file.
void SaveSetting(
    const QString &appName, const QString &section, const QString &key, const QString &value);

// The file that holds an application's settings: the one that exists for the name in any letter
// case, else one named after it (percent-encoded, long names shortened by a digest).
QString filePath(const QString &appName);

} // namespace SettingsStore
} // namespace kwFieldDeck
