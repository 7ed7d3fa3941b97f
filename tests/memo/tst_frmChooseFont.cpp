#include "memo/ModalShowDriver.h"
#include "memo/frmChooseFont.h"
#include "platform/ComboBox.h"
#include "platform/Label.h"
#include "platform/ListBox.h"
#include "platform/Services.h"

#include <QtTest>

using namespace kwFieldDeck;

// Ok and Cancel are worked through the memo window's Font menu in tst_frmMemo.
class tst_frmChooseFont : public QObject
{
    Q_OBJECT
private slots:
    void pickingShowsTheSampleAndTheCloseButtonCancels()
    {
        const QString family = screenFontFamilies().last();
        test::ModalShowDriver driver([&](Form &form) {
            auto &chooser = static_cast<frmChooseFont &>(form);
            QCOMPARE(chooser.lstFonts->ListCount(), screenFontFamilies().size());
            chooser.lstFonts->setListIndex(chooser.lstFonts->ListCount() - 1);
            chooser.cboSize->setListIndex(10); // "18"
            QCOMPARE(chooser.lblSample->Font().family(), family);
            QCOMPARE(chooser.lblSample->Font().pointSizeF(), 18.0);
            chooser.window()->close();
        });
        frmChooseFont chooser;
        chooser.Show(Form::Modal);
        QCOMPARE(driver.shown, 1);
        QVERIFY(!chooser.Visible());
        QVERIFY(chooser.Cancelled());
        QCOMPARE(chooser.Font_Name(), family);
        QCOMPARE(chooser.Font_Size(), 18.0f);
    }
};

QTEST_MAIN(tst_frmChooseFont)
#include "tst_frmChooseFont.moc"
