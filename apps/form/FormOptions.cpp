#include "FormOptions.h"

#include "FieldValueText.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace kwFieldDeck {

namespace {
const QString StoreOption = QStringLiteral("store");

// QCommandLineParser gives an option one value; --store takes three. The second and third are
// taken out here so that the parser sees "--store APP" and the rest of the line stays as written.
bool takeStoreArguments(QStringList &arguments, FormOptions &options)
{
    for (int i = 1; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (argument == QLatin1String("--"))
            return true;
        int firstValue;
        if (argument == QLatin1String("--store"))
            firstValue = i + 2;
        else if (argument.startsWith(QLatin1String("--store=")))
            firstValue = i + 1;
        else
            continue;
        if (firstValue + 1 >= arguments.size())
            return false;
        options.storeSection = arguments.takeAt(firstValue);
        options.storeSetting = arguments.takeAt(firstValue);
    }
    return true;
}

QString usageText()
{
    return QStringLiteral(
        "Shows a property grid built from a kwFieldDeck definition file, with a description line "
        "and OK and Cancel.\n"
        "\n"
        "OK prints every field as Name=Value, one line per field in the order of the grid. A CR "
        "LF line break inside a value is printed as the marker %CRLF% (as the settings store keeps "
        "it); --set reads the marker back as a line break.\n"
        "The definition file may have CR LF or LF line ends. Relative paths inside it (such as "
        "DB=) are read from the file's own folder.\n"
        "With no display, messages go to standard error and only --screenshot or --check can be "
        "used.\n"
        "\n"
        "--check reads the definition file (the usual definition-file argument: --check FILE) as "
        "the window would, but opens no window, needs no display and prints no values. It prints "
        "each message that loading the file shows, and each error the load reports, as one line "
        "\"FIELD: MESSAGE\", in the order they come. FIELD is the name of the field block being "
        "read when the message came; it is empty, so the line starts with \": \", for the "
        "header, a line between blocks or a block without a name. The lines of a message are "
        "joined by blanks; an error reads \"Error NUMBER (DESCRIPTION) in PROCEDURE\".\n"
        "\n"
        "Exit status: 0 after OK or --screenshot, 1 after Cancel or closing the window, 2 when the "
        "definition file cannot be loaded or the command line is wrong. With --check: 0 when the "
        "load shows nothing, 2 when it shows a message, or when the file cannot be loaded or "
        "defines no field (the reason then goes to standard error).");
}
} // namespace

FormOptions FormOptions::parse(const QStringList &arguments)
{
    FormOptions options;
    QStringList remaining = arguments;
    if (!takeStoreArguments(remaining, options)) {
        options.outcome = Outcome::Error;
        options.text = QStringLiteral("--store needs three values: APP SECTION SETTING");
        return options;
    }

    QCommandLineParser parser;
    parser.setApplicationDescription(usageText());
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption store(StoreOption,
        QStringLiteral("Restores the values saved under APP, SECTION, SETTING in the settings "
                       "store at start, and saves them there on OK. Takes three values."),
        QStringLiteral("APP SECTION SETTING"));
    const QCommandLineOption set(QStringLiteral("set"),
        QStringLiteral("Presets the field NAME to VALUE (after --store restores). Repeatable."),
        QStringLiteral("NAME=VALUE"));
    const QCommandLineOption title(
        QStringLiteral("title"), QStringLiteral("The window title."), QStringLiteral("TEXT"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
        QStringLiteral("Renders the window to FILE.png without showing it, then saves to the "
                       "store and prints the values as OK does, and exits 0."),
        QStringLiteral("FILE.png"));
    const QCommandLineOption dark(
        QStringLiteral("dark"), QStringLiteral("Uses the Fusion style with a dark palette."));
    const QCommandLineOption json(QStringLiteral("json"),
        QStringLiteral("Prints the values as one JSON object in the order of the grid, each in "
                       "its type: numbers as numbers, a check box as 0 or 1, a date as "
                       "YYYY-MM-DD, a memo with its line breaks."));
    const QCommandLineOption check(QStringLiteral("check"),
        QStringLiteral("Loads the definition file without a window and prints each message of the "
                       "load as FIELD: MESSAGE, one per line; no values. The file is the "
                       "definition-file argument. Takes no other option."));
    parser.addOptions({ store, set, title, screenshot, dark, json, check });
    parser.addPositionalArgument(
        QStringLiteral("definition-file"), QStringLiteral("The definition file to show."));

    if (!parser.parse(remaining)) {
        options.outcome = Outcome::Error;
        options.text = parser.errorText();
        return options;
    }
    if (parser.isSet(help)) {
        options.outcome = Outcome::Help;
        options.text = parser.helpText();
        return options;
    }
    if (parser.isSet(version)) {
        options.outcome = Outcome::Version;
        options.text = QCoreApplication::applicationName() + QLatin1Char(' ')
            + QCoreApplication::applicationVersion();
        return options;
    }

    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 1) {
        options.outcome = Outcome::Error;
        options.text = positional.isEmpty()
            ? QStringLiteral("No definition file given.")
            : QStringLiteral("Only one definition file can be shown; got: %1")
                  .arg(positional.join(QLatin1String(", ")));
        return options;
    }
    options.definitionFile = positional.first();

    if (parser.isSet(store)) {
        options.useStore = true;
        options.storeApp = parser.value(store);
    }
    for (const QString &preset : parser.values(set)) {
        const int equals = preset.indexOf(QLatin1Char('='));
        if (equals <= 0) {
            options.outcome = Outcome::Error;
            options.text = QStringLiteral("--set needs NAME=VALUE; got: %1").arg(preset);
            return options;
        }
        options.presets.append({ preset.left(equals), decodeLineBreaks(preset.mid(equals + 1)) });
    }
    options.title = parser.value(title);
    options.screenshotFile = parser.value(screenshot);
    options.dark = parser.isSet(dark);
    options.json = parser.isSet(json);
    options.check = parser.isSet(check);
    if (options.check) {
        QStringList others;
        for (const QCommandLineOption &other : { store, set, title, screenshot, dark, json }) {
            if (parser.isSet(other))
                others << QLatin1String("--") + other.names().constFirst();
        }
        if (!others.isEmpty()) {
            options.outcome = Outcome::Error;
            options.text = QStringLiteral("--check opens no window and prints no values; it "
                                          "takes no other option: %1")
                               .arg(others.join(QLatin1String(", ")));
        }
    }
    return options;
}

} // namespace kwFieldDeck
