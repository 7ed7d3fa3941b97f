#include "EditorHost.h"
#include "memo/ModalShowDriver.h"

#include "editors/kwMemoField.h"
#include "memo/frmMemo.h"

#include <QPlainTextEdit>

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
        ModalShowDriver driver([](QDialog &dialog) {
            auto *text = dialog.findChild<QPlainTextEdit *>(QStringLiteral("txtMemo"));
            QTest::keyClick(text, Qt::Key_End, Qt::ControlModifier);
            QTest::keyClick(text, Qt::Key_Return);
            QTest::keyClicks(text, QStringLiteral("c"));
            QTest::keyClick(text, Qt::Key_Escape);
        });
        QStringList valuesAtChange;
        connect(host.editor, &kwMemoField::Change, this,
            [&] { valuesAtChange << host.editor->Value(); });
        host.child<CommandButton>("btnBrowse")->pushButton()->click();
        QCOMPARE(host.editor->Value(), QStringLiteral("a\r\nb\r\nc"));
        QCOMPARE(valuesAtChange, QStringList { QStringLiteral("a\r\nb\r\nc") });
    }

    // Line breaks other than CR LF come back as they were, whichever way the window closes.
    void closingWithoutAnEditKeepsTheValueByteForByte_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("escape");
        const QVector<QPair<const char *, QString>> values { { "lone LF", "a\nb" },
            { "lone CR", "a\rb" }, { "mixed", "a\r\nb\nc\rd\n\re\r\r\n" }, { "trailing LF", "a\n" },
            { "CR LF", "a\r\nb" } };
        for (const auto &[name, value] : values) {
            QTest::addRow("%s, Escape", name) << value << true;
            QTest::addRow("%s, close command", name) << value << false;
        }
    }
    void closingWithoutAnEditKeepsTheValueByteForByte()
    {
        QFETCH(QString, value);
        QFETCH(bool, escape);
        Host host(QStringLiteral("kwMemoField"));
        host.editor->setValue(value);
        ModalShowDriver driver([&](QDialog &dialog) {
            if (escape)
                QTest::keyClick(
                    dialog.findChild<QPlainTextEdit *>(QStringLiteral("txtMemo")), Qt::Key_Escape);
            else
                dialog.close();
        });
        QStringList valuesAtChange;
        connect(host.editor, &kwMemoField::Change, this,
            [&] { valuesAtChange << host.editor->Value(); });
        host.child<CommandButton>("btnBrowse")->pushButton()->click();
        QCOMPARE(driver.shown, 1);
        QCOMPARE(host.editor->Value(), value);
        // The close still raises Change, as after every visit to the window: intended.
        QCOMPARE(valuesAtChange, QStringList { value });
    }

    void f4WithoutShiftOpensTheWindowCaptionedByTheFieldName()
    {
        Host host(QStringLiteral("kwMemoField"));
        host.editor->setFieldName(QStringLiteral("Remarks"));
        // Title is kept and persisted only; it captions nothing: intended.
        host.editor->setTitle(QStringLiteral("Something else"));
        QVERIFY(host.show());
        QStringList shown;
        ModalShowDriver driver([&](QDialog &dialog) {
            shown << static_cast<frmMemo &>(dialog).Title();
            dialog.hide();
        });
        host.editor->SetFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4, Qt::ShiftModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
        QCOMPARE(shown, QStringList { "Field: Remarks" });
    }
};

QTEST_MAIN(tst_kwMemoField)
#include "tst_kwMemoField.moc"
