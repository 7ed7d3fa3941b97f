// The plain Qt peer: a form of one label and one QLineEdit per row (QFormLayout in a
// QScrollArea), doing the grid's work the way a hand-written settings page would: editors found
// by name through a hash, values saved to and restored from QSettings.

#include "BenchWork.h"

#include <QApplication>
#include <QDir>
#include <QFormLayout>
#include <QHash>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QVector>

#include <memory>

namespace {

struct PreparedRow
{
    QString name;
    QString value;
    QString newValue;
};

class Form
{
public:
    Form(QWidget *window, const QVector<PreparedRow> &rows)
        : m_area(new QScrollArea(window))
    {
        m_area->setWidgetResizable(true);
        m_area->setGeometry(0, 0, window->width(), window->height());
        m_area->show();
        auto *form = new QWidget;
        m_layout = new QFormLayout(form);
        m_edits.reserve(rows.size());
        m_byName.reserve(rows.size());
        for (const PreparedRow &row : rows) {
            auto *edit = new QLineEdit(row.value);
            edit->setObjectName(row.name);
            m_layout->addRow(row.name, edit);
            m_edits.append(edit);
            m_byName.insert(row.name, edit);
        }
        // Filled before it is shown: each row shown in a visible form would lay out the whole
        // form again, which no one writing a large form by hand does.
        m_area->setWidget(form);
    }
    ~Form() { delete m_area; }

    void layout()
    {
        m_layout->invalidate();
        m_layout->activate();
        QCoreApplication::processEvents();
    }

    QLineEdit *edit(const QString &name) const { return m_byName.value(name); }
    const QVector<QLineEdit *> &edits() const { return m_edits; }

    void scrollStep()
    {
        QScrollBar *bar = m_area->verticalScrollBar();
        bar->setValue(bar->value() + bar->singleStep() > bar->maximum() / 2
                ? 0
                : bar->value() + bar->singleStep());
        QCoreApplication::processEvents();
    }

private:
    QScrollArea *m_area;
    QFormLayout *m_layout = nullptr;
    QVector<QLineEdit *> m_edits;
    QHash<QString, QLineEdit *> m_byName;
};

QVector<PreparedRow> prepare(int count)
{
    QVector<PreparedRow> rows;
    for (const bench::Row &row : bench::makeRows(count))
        rows.append({ QString::fromStdString(row.name), QString::fromStdString(row.value),
            QString::fromStdString(row.newValue) });
    return rows;
}

} // namespace

int main(int argc, char **argv)
{
    const int count = bench::takeRowCount(argc, argv);
    QApplication app(argc, argv);
    QWidget window;
    window.resize(800, 600);
    window.show();
    QCoreApplication::processEvents();

    const QVector<PreparedRow> rows = prepare(count);
    const QString settingsFile = QDir::temp().filePath(
        QStringLiteral("kwbench-qtform-%1.ini").arg(QCoreApplication::applicationPid()));
    std::unique_ptr<Form> shared;
    auto ensure = [&]() -> Form & {
        if (!shared)
            shared = std::make_unique<Form>(&window, rows);
        return *shared;
    };

    bench::Subject subject;
    subject.buildShared = [&] { ensure(); };
    // The first layout shows the scroll bar, which narrows the form; the second lays the rows
    // out at their final width, so that the timed layouts start from a settled form.
    subject.layoutShared = [&] {
        ensure().layout();
        ensure().layout();
    };
    subject.build = [&](benchmark::State &state) {
        for (auto _ : state) {
            auto form = std::make_unique<Form>(&window, rows);
            state.PauseTiming();
            form.reset();
            QCoreApplication::processEvents();
            state.ResumeTiming();
        }
    };
    subject.layout = [&] { ensure().layout(); };
    subject.setByName = [&](int round) {
        Form &form = ensure();
        for (const PreparedRow &row : rows)
            form.edit(row.name)->setText(round % 2 ? row.value : row.newValue);
    };
    subject.readAll = [&] {
        for (QLineEdit *edit : ensure().edits()) {
            QString text = edit->text();
            benchmark::DoNotOptimize(text);
        }
    };
    subject.save = [&] {
        QSettings settings(settingsFile, QSettings::IniFormat);
        settings.beginGroup(QStringLiteral("Values"));
        for (QLineEdit *edit : ensure().edits())
            settings.setValue(edit->objectName(), edit->text());
        settings.endGroup();
        settings.sync();
    };
    subject.restore = [&] {
        Form &form = ensure();
        QSettings settings(settingsFile, QSettings::IniFormat);
        settings.beginGroup(QStringLiteral("Values"));
        for (QLineEdit *edit : form.edits())
            edit->setText(settings.value(edit->objectName()).toString());
    };
    subject.scrollStep = [&] { ensure().scrollStep(); };

    bench::registerAll(subject, count);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    shared.reset();
    QFile::remove(settingsFile);
    return 0;
}
