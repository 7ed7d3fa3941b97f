// A host program for the property grid: a window with a grid whose rows are added from code, a
// label that shows the current row's description, and each edit printed as it happens.
// With --screenshot FILE.png the window is rendered to the file and the program exits.

#include <kwFieldDeck/DropDownValues>
#include <kwFieldDeck/Field>
#include <kwFieldDeck/Fields>
#include <kwFieldDeck/kwPropertyControl>

#include <QApplication>
#include <QCommandLineParser>
#include <QDate>
#include <QDeadlineTimer>
#include <QDir>
#include <QLabel>
#include <QTextStream>
#include <QVBoxLayout>
#include <QWidget>

using namespace kwFieldDeck;

namespace {
void addSampleFields(kwPropertyControl &grid)
{
    Fields *fields = grid.Fields();
    fields->Add("Host", ftText, 64, "db.example.org", "Name or address of the database server");
    fields->Add("Port", ftNumeric, 0, "5432", "TCP port the server listens on");
    fields->Add("Use TLS", ftCheckBox, 0, "TRUE", "Encrypt the connection");
    Field *mode = fields->Add("Mode", ftCombo, 0, {}, "How the client talks to the server");
    mode->DropDownValues()->Add("1", "Read only");
    mode->DropDownValues()->Add("2", "Read and write");
    mode->DropDownValues()->Add("9", "Maintenance");
    mode->setValue("2");
    fields->Add("Valid until", ftDate, 0, QDate::currentDate().addYears(1).toString(Qt::ISODate),
        "Last day the credentials are valid");
    Field *pool = fields->Add("Pool size", ftSlider, 0, "8", "Connections kept open");
    pool->setMin(1);
    pool->setMax(32);
    Field *log = fields->Add("Log file", ftFileSelector, 0, QDir::homePath() + "/client.log",
        "Where the client writes its log");
    log->setFilter("Log files (*.log)|*.log|All files|*.*");
    fields->Add(
        "Cache folder", ftFolderSelector, 0, QDir::tempPath(), "Folder for cached query results");
    fields->Add("Notes", ftMemo, 0, "Maintenance window:\r\nSundays 02:00-04:00",
        "Free text kept with the settings");
    fields->Add("Timeout", ftNumeric, 0, "30", "Seconds to wait for an answer");
    fields->Add("User", ftText, 32, "report", "Account used to log in");
    grid.AutoSizeFieldNameWidths();
}

// The offscreen platform activates a shown window after a few events; focus needs that.
void waitUntilActive(QWidget &window)
{
    QDeadlineTimer deadline(2000);
    while (!window.isActiveWindow() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}
} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kwfielddeck-example"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A window with a property grid."));
    parser.addHelpOption();
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
        QStringLiteral("Renders the window to FILE.png and exits."), QStringLiteral("FILE.png"));
    parser.addOption(screenshot);
    parser.process(app);

    QWidget window;
    window.setWindowTitle(QStringLiteral("kwFieldDeck example"));
    auto *layout = new QVBoxLayout(&window);
    auto *grid = new kwPropertyControl;
    auto *description = new QLabel;
    description->setWordWrap(true);
    description->setMinimumHeight(description->fontMetrics().lineSpacing() * 2);
    layout->addWidget(grid, 1);
    layout->addWidget(description);
    grid->setDescriptionLabel(description);
    window.resize(460, 300);

    addSampleFields(*grid);
    QTextStream out(stdout);
    QObject::connect(grid, &kwPropertyControl::Changed, [&out](Field *field) {
        out << field->Name() << " = " << field->Value().toString() << Qt::endl;
    });

    window.show();
    waitUntilActive(window);
    grid->Fields()->Item(2)->SetFocus();

    if (parser.isSet(screenshot)) {
        QCoreApplication::processEvents();
        const QString file = parser.value(screenshot);
        if (!window.grab().save(file)) {
            QTextStream(stderr) << "Could not write " << file << Qt::endl;
            return 1;
        }
        out << "Screenshot: " << file << Qt::endl;
        return 0;
    }
    return app.exec();
}
