#include "EditorHost.h"
#include "memo/ModalShowDriver.h"

#include "editors/kwMemoField.h"
#include "memo/frmMemo.h"
#include "platform/MultiLineTextBox.h"

using namespace kwFieldDeck;
using Host = test::EditorHost<kwMemoField>;
using test::ModalShowDriver;

class tst_kwMemoField : public QObject
{
    Q_OBJECT
private slots:
    void valueShowsAsTextAndEscapeKeepsTheEditedTextWithChange()
    {
        Host host(QStringLiteral("kwMemoField"));
        host.editor->setValue(QStringLiteral("a\r\nb"));
        QCOMPARE(host.child<TextBox>("Text1")->Text(), QStringLiteral("(Text)"));
        QCOMPARE(host.editor->Value(), QStringLiteral("a\r\nb"));
        ModalShowDriver driver([](Form &form) {
            auto &memo = static_cast<frmMemo &>(form);
            memo.txtMemo->setSelStart(int(memo.Value().size()));
            QTest::keyClick(memo.txtMemo->widget(), Qt::Key_Return);
            QTest::keyClicks(memo.txtMemo->widget(), QStringLiteral("c"));
            QTest::keyClick(memo.txtMemo->widget(), Qt::Key_Escape);
        });
        QStringList valuesAtChange;
        connect(host.editor, &kwMemoField::Change, this,
            [&] { valuesAtChange << host.editor->Value(); });
        host.child<CommandButton>("btnBrowse")->pushButton()->click();
        QCOMPARE(host.editor->Value(), QStringLiteral("a\r\nb\r\nc"));
        QCOMPARE(valuesAtChange, QStringList { QStringLiteral("a\r\nb\r\nc") });
    }

    void f4WithoutShiftOpensTheWindowCaptionedByTheFieldName()
    {
        Host host(QStringLiteral("kwMemoField"));
        host.editor->setFieldName(QStringLiteral("Remarks"));
        // Title is kept and persisted only; it captions nothing: intended.
        host.editor->setTitle(QStringLiteral("Something else"));
        QVERIFY(host.show());
        QStringList shown;
        ModalShowDriver driver([&](Form &form) {
            shown << static_cast<frmMemo &>(form).Title();
            form.Hide();
        });
        host.editor->SetFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4, Qt::ShiftModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
        QCOMPARE(shown, QStringList { "Field: Remarks" });
    }
};

QTEST_MAIN(tst_kwMemoField)
#include "tst_kwMemoField.moc"
