// kwfielddeck-form: puts a property grid built from a definition file in front of a user, and
// prints the values on OK; for people and for shell scripts. --check only loads the file and
// prints what the load shows, for builds.

#include "DefinitionCheck.h"
#include "DefinitionFile.h"
#include "FieldValueText.h"
#include "FormMessages.h"
#include "FormOptions.h"
#include "FormWindow.h"

#include <kwFieldDeck/Fields>
#include <kwFieldDeck/kwPropertyControl>

#include <QApplication>
#include <QFileInfo>
#include <QImage>
#include <QPalette>
#include <QStyleFactory>

#include <cstdio>
#include <cstring>
#include <vector>

using namespace kwFieldDeck;

namespace {
// Under X11 Qt takes "-title" and "--title" for itself, so it gets the command line without the
// form's title, and the form reads the whole line.
std::vector<char *> withoutTitle(int argc, char *argv[])
{
    std::vector<char *> kept;
    bool options = true;
    for (int i = 0; i < argc; ++i) {
        const char *arg = argv[i];
        options = options && std::strcmp(arg, "--") != 0;
        const char *name = options && arg[0] == '-' ? arg + (arg[1] == '-' ? 2 : 1) : nullptr;
        if (i > 0 && name && std::strcmp(name, "title") == 0)
            ++i;
        else if (!(i > 0 && name && std::strncmp(name, "title=", 6) == 0))
            kept.push_back(argv[i]);
    }
    kept.push_back(nullptr);
    return kept;
}

enum ExitCode { ExitOk = 0, ExitCancelled = 1, ExitNotLoaded = 2, ExitLoadShowedMessages = 2 };

void printTo(FILE *stream, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
    std::fputc('\n', stream);
    std::fflush(stream);
}

int fail(const QString &problem)
{
    printTo(stderr, QCoreApplication::applicationName() + QLatin1String(": ") + problem);
    return ExitNotLoaded;
}

QString cannotLoad(const QString &fileName, const QString &problem)
{
    return QStringLiteral("cannot load the definition file \"%1\": %2.").arg(fileName, problem);
}

// --check: what the load shows, one line each, and no window; for builds that check their
// definition files.
int checkDefinition(const QString &fileName)
{
    const DefinitionCheck check = checkDefinitionFile(fileName);
    if (!check.problem.isEmpty())
        return fail(cannotLoad(fileName, check.problem));
    for (const LoadNotice &notice : check.notices)
        printTo(stdout, noticeLine(notice));
    if (!check.notices.isEmpty())
        return ExitLoadShowedMessages;
    // Blocks that never end leave nothing and say nothing; the window would refuse the file.
    if (check.fieldCount == 0)
        return fail(cannotLoad(fileName, QStringLiteral("it defines no field")));
    return ExitOk;
}

void useDarkPalette()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette dark;
    const QColor window(45, 45, 48), base(30, 30, 32), text(230, 230, 230);
    dark.setColor(QPalette::Window, window);
    dark.setColor(QPalette::WindowText, text);
    dark.setColor(QPalette::Base, base);
    dark.setColor(QPalette::AlternateBase, window);
    dark.setColor(QPalette::ToolTipBase, base);
    dark.setColor(QPalette::ToolTipText, text);
    dark.setColor(QPalette::PlaceholderText, QColor(140, 140, 140));
    dark.setColor(QPalette::Text, text);
    dark.setColor(QPalette::Button, window);
    dark.setColor(QPalette::ButtonText, text);
    dark.setColor(QPalette::BrightText, Qt::red);
    dark.setColor(QPalette::Light, QColor(70, 70, 74));
    dark.setColor(QPalette::Midlight, QColor(60, 60, 64));
    dark.setColor(QPalette::Mid, QColor(40, 40, 42));
    dark.setColor(QPalette::Dark, QColor(20, 20, 22));
    dark.setColor(QPalette::Shadow, Qt::black);
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(90, 160, 240));
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(120, 120, 120));
    dark.setColor(QPalette::Disabled, QPalette::WindowText, QColor(120, 120, 120));
    dark.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(120, 120, 120));
    QApplication::setPalette(dark);
}

} // namespace

int main(int argc, char *argv[])
{
    // With no display, --help, --version and --screenshot still work.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && FormMessages::noDisplay())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    std::vector<char *> qtArgv = withoutTitle(argc, argv);
    int qtArgc = int(qtArgv.size()) - 1;
    QApplication app(qtArgc, qtArgv.data());
    QApplication::setApplicationName(QStringLiteral("kwfielddeck-form"));
    QApplication::setApplicationVersion(QStringLiteral(KWFIELDDECK_VERSION));

    const FormOptions options = FormOptions::parse(arguments);
    switch (options.outcome) {
    case FormOptions::Outcome::Help:
    case FormOptions::Outcome::Version:
        printTo(stdout, options.text);
        return ExitOk;
    case FormOptions::Outcome::Error:
        return fail(options.text + QLatin1String("\nTry --help for the usage."));
    case FormOptions::Outcome::Run:
        break;
    }

    if (options.check)
        return checkDefinition(options.definitionFile);

    const bool headless = FormMessages::noDisplay();
    if (headless && options.screenshotFile.isEmpty())
        return fail(QStringLiteral("there is no display to show the window on; "
                                   "--screenshot FILE.png renders it instead."));
    if (options.dark)
        useDarkPalette();

    FormMessages messages(headless);
    FormWindow window;
    window.setWindowTitle(options.title.isEmpty()
            ? QFileInfo(options.definitionFile).fileName() + QLatin1String(" - kwFieldDeck")
            : options.title);
    kwPropertyControl &grid = *window.grid();

    const QString problem = loadDefinitionFile(grid, options.definitionFile, messages);
    if (!problem.isEmpty())
        return fail(cannotLoad(options.definitionFile, problem));
    if (options.useStore)
        grid.GetValuesFromRegistry(options.storeApp, options.storeSection, options.storeSetting);
    const QStringList unknown = applyPresets(*grid.Fields(), options.presets);
    if (!unknown.isEmpty())
        return fail(QStringLiteral("--set names no field of the definition: %1")
                        .arg(unknown.join(QLatin1String(", "))));
    window.fitToFields();

    if (!options.screenshotFile.isEmpty()) {
        const QImage image = window.renderOffscreen();
        if (!image.save(options.screenshotFile, "PNG"))
            return fail(
                QStringLiteral("cannot write the screenshot \"%1\".").arg(options.screenshotFile));
    } else if (window.exec() != QDialog::Accepted) {
        return ExitCancelled;
    }

    if (options.useStore)
        grid.SaveValuesToRegistry(options.storeApp, options.storeSection, options.storeSetting);
    printTo(stdout,
        options.json ? QString::fromUtf8(valuesAsJson(*grid.Fields()))
                     : valueLines(*grid.Fields()).join(QLatin1Char('\n')));
    return ExitOk;
}
