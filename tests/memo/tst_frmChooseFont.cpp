#include "memo/ModalShowDriver.h"
#include "memo/frmChooseFont.h"
#include "platform/ComboBox.h"
#include "platform/CommandButton.h"
#include "platform/Frame.h"
#include "platform/Label.h"
#include "platform/ListBox.h"
#include "platform/Services.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_frmChooseFont : public QObject
{
    Q_OBJECT
private slots:
    void showsItsCaptionsAndTheFixedSizes();
    void loadingListsTheScreenFontsInTheirOrder();
    void fontNameSelectsOnlyAnExactlySpelledFont_data();
    void fontNameSelectsOnlyAnExactlySpelledFont();
    void fontSizeSelectsOnlyAnEqualSize_data();
    void fontSizeSelectsOnlyAnEqualSize();
    void pickingAFontAndASizeUpdatesTheSampleAndTheChoice();
    void closingSetsTheCancelledFlag_data();
    void closingSetsTheCancelledFlag();
};

void tst_frmChooseFont::showsItsCaptionsAndTheFixedSizes()
{
    frmChooseFont chooser;
    QCOMPARE(chooser.Caption(), QStringLiteral("Choose Font"));
    QCOMPARE(chooser.Label2->Caption(), QStringLiteral("Size"));
    QCOMPARE(chooser.Frame1->Caption(), QStringLiteral("Sample"));
    QCOMPARE(chooser.btnOk->Caption(), QStringLiteral("Ok"));
    QCOMPARE(chooser.btnCancel->Caption(), QStringLiteral("Cancel"));
    QStringList sizes;
    for (int i = 0; i < chooser.cboSize->ListCount(); ++i)
        sizes << chooser.cboSize->List(i);
    QCOMPARE(sizes, QString("5,6,7,8,9,10,11,12,14,16,18,20,22,24,26,28,30,36,48,72").split(','));
    QCOMPARE(chooser.lblSample->Container(), chooser.Frame1->widget());
}

void tst_frmChooseFont::loadingListsTheScreenFontsInTheirOrder()
{
    frmChooseFont chooser;
    chooser.Load();
    QStringList listed;
    for (int i = 0; i < chooser.lstFonts->ListCount(); ++i)
        listed << chooser.lstFonts->List(i);
    QVERIFY(!listed.isEmpty());
    QCOMPARE(listed, screenFontFamilies());
    QCOMPARE(chooser.lstFonts->ListIndex(), -1);
}

void tst_frmChooseFont::fontNameSelectsOnlyAnExactlySpelledFont_data()
{
    const QStringList families = screenFontFamilies();
    QVERIFY(families.size() >= 2);
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("selected");
    QTest::newRow("listed") << families[1] << 1;
    QTest::newRow("other letter case") << families[1].toUpper() << 0;
    QTest::newRow("not listed") << "No Such Face" << 0;
}

void tst_frmChooseFont::fontNameSelectsOnlyAnExactlySpelledFont()
{
    QFETCH(QString, name);
    QFETCH(int, selected);
    frmChooseFont chooser;
    chooser.lstFonts->setListIndex(-1);
    chooser.setFont_Name(screenFontFamilies().first());
    QCOMPARE(chooser.lstFonts->ListIndex(), 0);
    chooser.setFont_Name(name);
    QCOMPARE(chooser.lstFonts->ListIndex(), selected);
}

void tst_frmChooseFont::fontSizeSelectsOnlyAnEqualSize_data()
{
    QTest::addColumn<float>("size");
    QTest::addColumn<QString>("selected");
    QTest::newRow("14") << 14.0f << "14";
    QTest::newRow("13 is not offered") << 13.0f << "10";
    QTest::newRow("72") << 72.0f << "72";
    QTest::newRow("10.5 is not offered") << 10.5f << "10";
}

void tst_frmChooseFont::fontSizeSelectsOnlyAnEqualSize()
{
    QFETCH(float, size);
    QFETCH(QString, selected);
    frmChooseFont chooser;
    chooser.setFont_Size(10);
    chooser.setFont_Size(size);
    QCOMPARE(chooser.cboSize->Text(), selected);
    QCOMPARE(chooser.Font_Size(), size);
}

void tst_frmChooseFont::pickingAFontAndASizeUpdatesTheSampleAndTheChoice()
{
    const QString family = screenFontFamilies().last();
    frmChooseFont chooser;
    chooser.Load();
    chooser.lstFonts->setListIndex(chooser.lstFonts->ListCount() - 1);
    chooser.cboSize->setListIndex(10); // "18"
    QCOMPARE(chooser.Font_Name(), family);
    QCOMPARE(chooser.Font_Size(), 18.0f);
    QCOMPARE(chooser.lblSample->Font().family(), family);
    QCOMPARE(chooser.lblSample->Font().pointSizeF(), 18.0);
}

void tst_frmChooseFont::closingSetsTheCancelledFlag_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("cancelled");
    QTest::newRow("Ok") << "btnOk" << false;
    QTest::newRow("Cancel") << "btnCancel" << true;
    QTest::newRow("close button") << "close" << true;
}

void tst_frmChooseFont::closingSetsTheCancelledFlag()
{
    QFETCH(QString, how);
    QFETCH(bool, cancelled);
    test::ModalShowDriver driver([&](Form &form) {
        auto &chooser = static_cast<frmChooseFont &>(form);
        if (how == QLatin1String("close"))
            chooser.window()->close();
        else
            QTest::mouseClick(chooser.findChild<CommandButton *>(how)->widget(), Qt::LeftButton);
    });
    frmChooseFont chooser;
    chooser.setFont_Name(screenFontFamilies().first());
    chooser.setFont_Size(12);
    chooser.Show(Form::Modal);
    QCOMPARE(driver.shown, 1);
    QVERIFY(!chooser.Visible());
    QCOMPARE(chooser.Cancelled(), cancelled);
    QCOMPARE(chooser.Font_Name(), screenFontFamilies().first());
    QCOMPARE(chooser.Font_Size(), 12.0f);
}

QTEST_MAIN(tst_frmChooseFont)
#include "tst_frmChooseFont.moc"
