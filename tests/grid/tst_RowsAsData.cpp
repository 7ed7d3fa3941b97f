// A grid of many rows costs no widget per row: a grid holds its viewport, its scroll bar and the
// live editor of one row, as many for 100,000 rows as for 1,000, wherever it is scrolled, and the
// keyboard walks the rows in order, each in view as it is reached.

#include "grid/GridHost.h"

#include <QtTest>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

namespace {
constexpr lFieldTypes everyType[] = { ftText, ftNumeric, ftCheckBox, ftCombo, ftDate, ftSlider,
    ftFileSelector, ftFolderSelector, ftMemo };

// A grid 400 pixels high with rows of every type in turn.
struct TallGrid : GridHost
{
    explicit TallGrid(int rows)
        : GridHost(4000, float(400 * twipsPerPixelY()))
    {
        for (int i = 0; i < rows; ++i)
            add(QStringLiteral("Row%1").arg(i), everyType[i % 9]);
        grid->Refresh(true);
    }

    qsizetype liveWidgets() const { return grid->findChildren<QWidget *>().size(); }
    // The widgets that are not parts of the live editor: the viewport and the scroll bar.
    qsizetype gridWidgets() const
    {
        qsizetype count = 0;
        const QWidget *editor = d()->rowEditor().editor();
        for (const QWidget *widget : grid->findChildren<QWidget *>()) {
            if (!editor || (widget != editor && !editor->isAncestorOf(widget)))
                ++count;
        }
        return count;
    }

    // FirstRow, since the scroll bar of the system is 16-bit and a range past 32,767 rows
    // overflows it.
    void scrollTo(int row)
    {
        grid->setFirstRow(qint16(row));
        QCoreApplication::processEvents();
    }
};
} // namespace

class tst_RowsAsData : public QObject
{
    Q_OBJECT
private slots:
    void widgetsDoNotGrowWithTheRows()
    {
        TallGrid few(1000);
        TallGrid many(100000);
        QCOMPARE(many.grid->Fields()->Count(), 100000);
        QCOMPARE(many.liveWidgets(), few.liveWidgets());
        QCOMPARE(many.gridWidgets(), 2);
        // The row with the focus has one live editor, in a grid of any size.
        many.field(QStringLiteral("Row99999"))->SetFocus();
        few.field(QStringLiteral("Row999"))->SetFocus();
        QCOMPARE(many.liveWidgets(), few.liveWidgets());
        QVERIFY(many.d()->rowEditor().editor());
        QCOMPARE(many.gridWidgets(), 2);
        // Scrolling makes no widget: anywhere in the grid there are as many as in the small one.
        const QPair<int, int> positions[]
            = { { 500, 500 }, { 300, 30000 }, { 0, 0 }, { 990, 32000 } };
        for (const auto &[inFew, inMany] : positions) {
            few.scrollTo(inFew);
            many.scrollTo(inMany);
            QCOMPARE(many.liveWidgets(), few.liveWidgets());
        }
        // A row without widgets has all of its state.
        Field *far = many.field(QStringLiteral("Row77769"));
        QVERIFY(many.d()->rowEditor().row() != far);
        far->setValue(QStringLiteral("far away"));
        QCOMPARE(far->Value().toString(), QStringLiteral("far away"));
        QCOMPARE(GridHost::state(far).text, QStringLiteral("far away"));
    }

    void downWalksPastTheRealizedRows_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Down") << int(Qt::Key_Down);
        QTest::newRow("Tab") << int(Qt::Key_Tab);
    }

    // Every row is reached in order, each one highlighted and in view when the focus arrives,
    // far beyond the rows that had widgets when the walk began.
    void downWalksPastTheRealizedRows()
    {
        QFETCH(int, key);
        GridHost host(4005, float(400 * twipsPerPixelY()));
        for (int i = 0; i < 150; ++i)
            host.add(QStringLiteral("Row%1").arg(i), ftText);
        host.grid->Refresh(true);
        Field *first = host.field(QStringLiteral("Row0"));
        first->SetFocus();
        QTRY_VERIFY(host.d()->rowEditor().row() == first && host.d()->rowEditor().holdsFocus());
        for (int i = 1; i < 150; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
            Field *row = host.field(QStringLiteral("Row%1").arg(i));
            QTRY_VERIFY2(host.d()->rowEditor().row() == row && host.d()->rowEditor().holdsFocus(),
                qPrintable(QString::number(i)));
            QCOMPARE(host.d()->highlighted(), row);
            const QWidget *box = host.d()->rowEditor().editor();
            QVERIFY(host.view()->rect().contains(
                QRect(box->mapTo(host.view(), QPoint()), box->size())));
        }
    }
};

QTEST_MAIN(tst_RowsAsData)
#include "tst_RowsAsData.moc"
