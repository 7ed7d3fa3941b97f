#include "editors/memo/frmChooseFont.h"
#include <QFontDatabase>

#include <QComboBox>
#include <QListWidget>
#include <QtTest>

using namespace kwFieldDeck;

// Picking, Ok, Cancel and the close button are worked through the memo window's Font menu in
// tst_frmMemo.
class tst_frmChooseFont : public QObject
{
    Q_OBJECT
private slots:
    // Writing a property keeps the value written and selects only an entry equal to it; else the
    // selection stays as it was.
    void writingSelectsOnlyAnEqualEntry_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("first");
        QTest::addColumn<QVariant>("then");
        QTest::addColumn<QString>("selected");
        const QStringList families = QFontDatabase::families();
        const QString a = families.value(0);
        const QString b = families.value(1);
        const QString bOtherCase = b.toLower() != b ? b.toLower() : b.toUpper();
        QTest::newRow("listed font") << QByteArray("Font_Name") << QVariant(a) << QVariant(b) << b;
        QTest::newRow("font in another letter case")
            << QByteArray("Font_Name") << QVariant(a) << QVariant(bOtherCase) << a;
        QTest::newRow("unknown font")
            << QByteArray("Font_Name") << QVariant(a) << QVariant("No Such Face") << a;
        QTest::newRow("listed size")
            << QByteArray("Font_Size") << QVariant(12.0f) << QVariant(14.0f) << "14";
        QTest::newRow("size not listed")
            << QByteArray("Font_Size") << QVariant(12.0f) << QVariant(13.0f) << "12";
    }
    void writingSelectsOnlyAnEqualEntry()
    {
        QFETCH(QByteArray, property);
        QFETCH(QVariant, first);
        QFETCH(QVariant, then);
        QFETCH(QString, selected);
        frmChooseFont chooser;
        QVERIFY(chooser.setProperty(property, first));
        QVERIFY(chooser.setProperty(property, then));
        QCOMPARE(chooser.property(property), then);
        if (property == "Font_Name") {
            const QList<QListWidgetItem *> items = chooser.lstFonts->selectedItems();
            QCOMPARE(items.size(), 1);
            QCOMPARE(items.first()->text(), selected);
        } else {
            QCOMPARE(chooser.cboSize->currentText(), selected);
        }
    }
};

QTEST_MAIN(tst_frmChooseFont)
#include "tst_frmChooseFont.moc"
