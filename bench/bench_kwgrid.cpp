// kwPropertyControl on the comparison's work: the grid built from one definition string, a full
// Refresh(true), every value set by name through Fields, every value read, all values saved to
// and restored from the settings store, one step of the scroll bar, and memory per row.

#include "BenchWork.h"

#include <kwFieldDeck/kwFieldDeck>

#include <QApplication>
#include <QScrollBar>
#include <QVector>

#include <cstdio>
#include <memory>

using namespace kwFieldDeck;

namespace {

const QString CRLF = QStringLiteral("\r\n");

// The definition string of the rows, in the grid's definition language.
QString definitionOf(const std::vector<bench::Row> &rows)
{
    QString def = QStringLiteral("FIELDNAMEWIDTH=1500") + CRLF;
    for (const bench::Row &row : rows) {
        def += QStringLiteral("ADDFIELD ") + QString::fromStdString(row.name) + CRLF;
        def += QStringLiteral("TYPE=") + QLatin1String(bench::typeName(row.type)) + CRLF;
        def += QStringLiteral("VALUE=") + QString::fromStdString(row.value) + CRLF;
        switch (row.type) {
        case bench::RowType::Combo:
            def += QStringLiteral("ADDCOMBOITEMS") + CRLF;
            for (size_t i = 0; i < bench::comboKeys().size(); ++i)
                def += QString::fromStdString(bench::comboKeys()[i] + "=" + bench::comboTexts()[i])
                    + CRLF;
            def += QStringLiteral("ENDCOMBOITEMS") + CRLF;
            break;
        case bench::RowType::Slider:
            def += QStringLiteral("MIN=0") + CRLF + QStringLiteral("MAX=100") + CRLF;
            break;
        case bench::RowType::FileSelector:
            def += QStringLiteral("TITLE=Choose a file") + CRLF
                + QStringLiteral("FILTER=Text files|*.txt") + CRLF;
            break;
        default:
            break;
        }
        def += QStringLiteral("ENDFIELD") + CRLF;
    }
    return def;
}

// The grid as a host places it: filling the host's window.
class Host
{
public:
    explicit Host(QWidget *window)
        : m_grid(new kwPropertyControl(window))
    {
        m_grid->setGeometry(window->rect());
        m_grid->show();
    }
    ~Host() { delete m_grid; }

    kwPropertyControl *grid() const { return m_grid; }

    void scrollStep()
    {
        QScrollBar *bar = m_grid->findChild<QScrollBar *>();
        bar->setValue(bar->value() + 1 > bar->maximum() / 2 ? 0 : bar->value() + 1);
        QCoreApplication::processEvents();
    }

private:
    kwPropertyControl *m_grid;
};

int g_messages = 0;
int g_errors = 0;

} // namespace

int main(int argc, char **argv)
{
    const int count = bench::takeRowCount(argc, argv);
    QApplication app(argc, argv);
    // A message or an error report means the work was not what the figures claim.
    setMessageBoxHandler([](const QString &prompt, int, const QString &) {
        if (g_messages++ < 5)
            std::fprintf(stderr, "message: %s\n", qPrintable(prompt));
        return MsgBoxResult::OK;
    });
    setErrorReportHandler([count](int number, const QString &description, const QString &source) {
        // The scroll range is a 16-bit number, so a grid of more rows reports this overflow
        // whenever it computes the range: expected, and not a fault of the run.
        if (number == 6 /* overflow */ && source.contains(QLatin1String("'CalcSlider'"))
            && count > 32767)
            return;
        if (g_errors++ < 5)
            std::fprintf(
                stderr, "error %d %s in %s\n", number, qPrintable(description), qPrintable(source));
    });

    QWidget window;
    window.resize(800, 600);
    window.show();
    QCoreApplication::processEvents();

    const std::vector<bench::Row> rows = bench::makeRows(count);
    const QString definition = definitionOf(rows);
    QVector<QVariant> names, firstValues, newValues;
    for (const bench::Row &row : rows) {
        names.append(QString::fromStdString(row.name));
        firstValues.append(QString::fromStdString(row.value));
        newValues.append(QString::fromStdString(row.newValue));
    }
    const QString app_ = QStringLiteral("kwFieldDeckBench"), section = QStringLiteral("Grid"),
                  setting = QStringLiteral("Values");

    std::unique_ptr<Host> shared;
    auto ensure = [&]() -> kwPropertyControl & {
        if (!shared) {
            shared = std::make_unique<Host>(&window);
            shared->grid()->ReadDef(definition);
        }
        return *shared->grid();
    };

    bench::Subject subject;
    subject.buildShared = [&] { ensure(); };
    subject.layoutShared = [&] { ensure().Refresh(true); };
    subject.build = [&](benchmark::State &state) {
        for (auto _ : state) {
            auto host = std::make_unique<Host>(&window);
            host->grid()->ReadDef(definition);
            state.PauseTiming();
            if (host->grid()->Fields()->Count() != count)
                state.SkipWithError("the definition did not give every row");
            host.reset();
            QCoreApplication::processEvents();
            state.ResumeTiming();
        }
    };
    subject.layout = [&] { ensure().Refresh(true); };
    subject.setByName = [&](int round) {
        kwFieldDeck::Fields *fields = ensure().Fields();
        const QVector<QVariant> &values = round % 2 ? firstValues : newValues;
        for (int i = 0; i < count; ++i)
            fields->Item(names[i])->setValue(values[i]);
    };
    subject.readAll = [&] {
        for (Field *field : *ensure().Fields()) {
            QVariant value = field->Value();
            benchmark::DoNotOptimize(value);
        }
    };
    subject.save = [&] { ensure().SaveValuesToRegistry(app_, section, setting); };
    subject.restore = [&] { ensure().GetValuesFromRegistry(app_, section, setting); };
    subject.scrollStep = [&] {
        ensure();
        shared->scrollStep();
    };

    bench::registerAll(subject, count);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    shared.reset();
    if (g_messages || g_errors) {
        std::fprintf(
            stderr, "%d messages and %d error reports during the run\n", g_messages, g_errors);
        return 2;
    }
    return 0;
}
