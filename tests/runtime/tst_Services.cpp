#include "runtime/Services.h"

#include <QLineEdit>
#include <QVBoxLayout>
#include <QtTest>

using namespace kwFieldDeck;

class tst_Services : public QObject
{
    Q_OBJECT
private slots:
    void tabKeystrokesMoveTheFocus_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<int>("focus"); // which of three boxes, starting from the second
        QTest::newRow("{tab}") << "{tab}" << 2;
        QTest::newRow("+{tab}") << "+{tab}" << 0;
        QTest::newRow("{TAB}+{Tab}") << "{TAB}+{Tab}" << 1;
    }

    void tabKeystrokesMoveTheFocus()
    {
        QFETCH(QString, keys);
        QFETCH(int, focus);
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        QLineEdit edits[3];
        for (QLineEdit &edit : edits)
            layout->addWidget(&edit);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        edits[1].setFocus();
        SendKeys(keys);
        // The keystrokes are posted: they arrive when events are processed.
        QCOMPARE(QApplication::focusWidget(), &edits[1]);
        QCoreApplication::processEvents();
        QTRY_COMPARE(QApplication::focusWidget(), &edits[focus]);
    }
};

QTEST_MAIN(tst_Services)
#include "tst_Services.moc"
