#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace kwFieldDeck {

// What the command line of kwfielddeck-form asks for.
struct FormOptions
{
    enum class Outcome { Run, Help, Version, Error };

    Outcome outcome = Outcome::Run;
    // The usage text for Help, the version line for Version, the complaint for Error.
    QString text;

    QString definitionFile;
    bool useStore = false;
    QString storeApp, storeSection, storeSetting;
    // NAME=VALUE presets in the order given, the value with "%CRLF%" already made a line break.
    QVector<QPair<QString, QString>> presets;
    QString title;
    QString screenshotFile;
    bool dark = false;
    // Print the values as one JSON object instead of Name=Value lines.
    bool json = false;
    // Load the definition file without a window and print what the load shows, nothing else.
    bool check = false;

    // Reads the arguments (the program name first, as in QCoreApplication::arguments()).
    static FormOptions parse(const QStringList &arguments);
};

} // namespace kwFieldDeck
