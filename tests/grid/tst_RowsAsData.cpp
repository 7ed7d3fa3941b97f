// A grid of many rows costs widgets only for the rows near its view: the widgets under a grid
// 400 pixels high are as many for 100,000 rows as for 1,000, wherever it is scrolled, and the
// keyboard still walks the rows in order past the rows that had no widgets.

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
        // Scrolling reuses the widgets of the rows that left the view: anywhere in the grid the
        // rows near the view take as many as in the small grid.
        const QPair<int, int> positions[]
            = { { 500, 500 }, { 300, 30000 }, { 0, 0 }, { 990, 32000 } };
        for (const auto &[inFew, inMany] : positions) {
            few.scrollTo(inFew);
            many.scrollTo(inMany);
            QCOMPARE(many.liveWidgets(), few.liveWidgets());
        }
        // A row without widgets has all of its state.
        Field *far = many.field(QStringLiteral("Row77769"));
        QVERIFY(!FieldPrivate::get(far)->EditorControl()->isRealized());
        far->setValue(QStringLiteral("far away"));
        QCOMPARE(far->Value().toString(), QStringLiteral("far away"));
        QCOMPARE(FieldPrivate::get(far)->ValueTextBox()->Text(), QStringLiteral("far away"));
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
        GridHost host(4000, float(400 * twipsPerPixelY()));
        for (int i = 0; i < 150; ++i)
            host.add(QStringLiteral("Row%1").arg(i), ftText);
        host.grid->Refresh(true);
        Field *first = host.field(QStringLiteral("Row0"));
        FieldPrivate::get(first)->ValueTextBox()->SetFocus();
        QTRY_VERIFY(FieldPrivate::get(first)->ValueTextBox()->hasFocus());
        for (int i = 1; i < 150; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
            Field *row = host.field(QStringLiteral("Row%1").arg(i));
            QTRY_VERIFY2(
                FieldPrivate::get(row)->ValueTextBox()->hasFocus(), qPrintable(QString::number(i)));
            QCOMPARE(FieldPrivate::get(row)->FieldNameControl()->BackColor(),
                OleColor(SystemColor::Highlight));
            const QWidget *box = FieldPrivate::get(row)->ValueTextBox()->realizedWidget();
            const QWidget *view = kwPropertyControlPrivate::get(host.grid)->OuterPicBox()->widget();
            QVERIFY(view->rect().contains(QRect(box->mapTo(view, QPoint()), box->size())));
        }
    }
};

QTEST_MAIN(tst_RowsAsData)
#include "tst_RowsAsData.moc"
