#include "EditorHost.h"
#include "TestSupport.h"
#include "memo/ModalShowDriver.h"

#include "editors/kwMemoField.h"
#include "memo/frmMemo.h"
#include "platform/CommandButton.h"
#include "platform/MultiLineTextBox.h"
#include "platform/PropertyBag.h"
#include "platform/TextBox.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwMemoField>;
using test::ModalShowDriver;

namespace {
// Closes every memo window at once, as Escape does, and keeps what it was shown with.
struct MemoCloser
{
    QStringList captions;
    QStringList values;
    ModalShowDriver driver { [this](Form &form) {
        auto &memo = static_cast<frmMemo &>(form);
        captions << memo.Title();
        values << memo.Value();
        QTest::keyClick(memo.txtMemo->widget(), Qt::Key_Escape);
    } };
};
} // namespace

class tst_kwMemoField : public QObject
{
    Q_OBJECT
private slots:
    void valueShowsThePlaceholderAndReadsBackWhole_data();
    void valueShowsThePlaceholderAndReadsBackWhole();
    void escapeKeepsTheEditedTextAndChangeCarriesIt();
    void f4WithoutShiftOpensTheEditor_data();
    void f4WithoutShiftOpensTheEditor();
    void eachUserActionOpensTheEditorOnce();
    void titleChangesNothingVisible();
    void textBoxIsReadOnlyAndPassesTypedKeys();
    void writingStoresTheNineNamesInOrder();
    void readingSkipsTheValueAndEmptiesTheBox();
    void emptyBagYieldsDefaults();
};

void tst_kwMemoField::valueShowsThePlaceholderAndReadsBackWhole_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("two lines") << "a\r\nb";
    QTest::newRow("empty") << QString();
    QTest::newRow("tabs and blanks") << "\tx  \r\n\r\n";
}

void tst_kwMemoField::valueShowsThePlaceholderAndReadsBackWhole()
{
    QFETCH(QString, value);
    Host host("kwMemoField");
    QSignalSpy changed(host.editor, &UserControl::PropertyChanged);
    host.editor->setValue(value);
    QCOMPARE(host.child<TextBox>("Text1")->Text(), QStringLiteral("(Text)"));
    QCOMPARE(host.editor->Value(), value);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toString(), QStringLiteral("Value"));
}

void tst_kwMemoField::escapeKeepsTheEditedTextAndChangeCarriesIt()
{
    Host host("kwMemoField");
    host.editor->setFieldName(QStringLiteral("Notes"));
    host.editor->setValue(QStringLiteral("a\r\nb"));
    ModalShowDriver driver([](Form &form) {
        auto &memo = static_cast<frmMemo &>(form);
        QCOMPARE(memo.Title(), QStringLiteral("Field: Notes"));
        QCOMPARE(memo.Value(), QStringLiteral("a\r\nb"));
        memo.txtMemo->setSelStart(int(memo.Value().size()));
        QTest::keyClick(memo.txtMemo->widget(), Qt::Key_Return);
        QTest::keyClicks(memo.txtMemo->widget(), QStringLiteral("c"));
        QTest::keyClick(memo.txtMemo->widget(), Qt::Key_Escape);
    });
    QStringList valuesAtChange;
    connect(
        host.editor, &kwMemoField::Change, this, [&] { valuesAtChange << host.editor->Value(); });
    host.child<CommandButton>("btnBrowse")->pushButton()->click();
    QCOMPARE(driver.shown, 1);
    QCOMPARE(host.editor->Value(), QStringLiteral("a\r\nb\r\nc"));
    QCOMPARE(valuesAtChange, QStringList { QStringLiteral("a\r\nb\r\nc") });
    QCOMPARE(host.child<TextBox>("Text1")->Text(), QStringLiteral("(Text)"));
}

void tst_kwMemoField::f4WithoutShiftOpensTheEditor_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("openings");
    QTest::newRow("F4") << int(Qt::NoModifier) << 1;
    QTest::newRow("Shift+F4") << int(Qt::ShiftModifier) << 0;
    QTest::newRow("Ctrl+F4") << int(Qt::ControlModifier) << 0;
}

void tst_kwMemoField::f4WithoutShiftOpensTheEditor()
{
    QFETCH(int, modifiers);
    QFETCH(int, openings);
    Host host("kwMemoField");
    host.editor->setFieldName(QStringLiteral("Remarks"));
    QVERIFY(host.show());
    MemoCloser closer;
    host.editor->SetFocus();
    QTest::keyClick(
        host.child<TextBox>("Text1")->widget(), Qt::Key_F4, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(closer.driver.shown, openings);
    if (openings)
        QCOMPARE(closer.captions.first(), QStringLiteral("Field: Remarks"));
}

void tst_kwMemoField::eachUserActionOpensTheEditorOnce()
{
    Host host("kwMemoField");
    QVERIFY(host.show());
    MemoCloser closer;
    QSignalSpy hasFocus(host.editor, &kwMemoField::HasFocus);
    QWidget *button = host.child<CommandButton>("btnBrowse")->widget();
    // The press gives the button the focus, which opens the editor; its click does not.
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(closer.driver.shown, 1);
    QCOMPARE(hasFocus.count(), 1);
    // The window becoming active again after the editor closed opens nothing.
    QVERIFY(host.show());
    QCOMPARE(QApplication::focusWidget(), button);
    QCOMPARE(closer.driver.shown, 1);
    // With the focus already on the button, a click opens it once.
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(closer.driver.shown, 2);
    QVERIFY(host.show());
    // Tabbing onto the button opens it once.
    host.editor->SetFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(closer.driver.shown, 3);
}

void tst_kwMemoField::titleChangesNothingVisible()
{
    Host host("kwMemoField");
    host.editor->setFieldName(QStringLiteral("Notes"));
    QSignalSpy changed(host.editor, &UserControl::PropertyChanged);
    host.editor->setTitle(QStringLiteral("Something else"));
    QCOMPARE(host.editor->Title(), QStringLiteral("Something else"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(host.child<TextBox>("Text1")->Text(), QString());
    MemoCloser closer;
    host.child<CommandButton>("btnBrowse")->pushButton()->click();
    QCOMPARE(closer.captions, QStringList { QStringLiteral("Field: Notes") });
}

void tst_kwMemoField::textBoxIsReadOnlyAndPassesTypedKeys()
{
    Host host("kwMemoField");
    host.editor->setValue(QStringLiteral("kept"));
    QVERIFY(host.show());
    host.editor->SetFocus();
    QList<int> typed;
    connect(host.editor, &kwMemoField::KeyPress, this, [&](int &KeyAscii) { typed << KeyAscii; });
    QTest::keyClicks(host.child<TextBox>("Text1")->widget(), QStringLiteral("xy"));
    QCOMPARE(typed, (QList<int> { 'x', 'y' }));
    QCOMPARE(host.child<TextBox>("Text1")->Text(), QStringLiteral("(Text)"));
    QCOMPARE(host.editor->Value(), QStringLiteral("kept"));
}

void tst_kwMemoField::writingStoresTheNineNamesInOrder()
{
    Host host("kwMemoField");
    host.editor->setValue(QStringLiteral("a\r\nb"));
    host.editor->setTitle(QStringLiteral("T"));
    host.editor->setEnabled(false);
    // Every name is written, even those equal to their default.
    struct AllNames : MemoryPropertyBag
    {
        QStringList written;
        void WriteProperty(
            const QString &name, const QVariant &value, const QVariant &defaultValue) override
        {
            written << name;
            MemoryPropertyBag::WriteProperty(name, value, defaultValue);
        }
    } recorder;
    host.editor->writeProperties(recorder);
    QCOMPARE(recorder.written,
        (QStringList { "BackColor", "ForeColor", "Enabled", "Font", "BackStyle", "BorderStyle",
            "Value", "Title", "ScaleMode" }));
    QCOMPARE(recorder.ReadProperty(QStringLiteral("Value")).toString(), QStringLiteral("a\r\nb"));
    QCOMPARE(recorder.ReadProperty(QStringLiteral("Title")).toString(), QStringLiteral("T"));
    QCOMPARE(recorder.ReadProperty(QStringLiteral("Enabled"), true).toBool(), false);
}

void tst_kwMemoField::readingSkipsTheValueAndEmptiesTheBox()
{
    Host source("kwMemoField");
    source.editor->setValue(QStringLiteral("stored text"));
    source.editor->setTitle(QStringLiteral("Kept title"));
    MemoryPropertyBag bag;
    source.editor->writeProperties(bag);

    Host restored("kwMemoField");
    restored.editor->setValue(QStringLiteral("earlier"));
    restored.editor->readProperties(bag);
    QCOMPARE(restored.child<TextBox>("Text1")->Text(), QString());
    QCOMPARE(restored.editor->Title(), QStringLiteral("Kept title"));
    // The kept text is what it was; the bag's value never comes back.
    QCOMPARE(restored.editor->Value(), QStringLiteral("earlier"));
}

void tst_kwMemoField::emptyBagYieldsDefaults()
{
    Host host("kwMemoField");
    host.editor->setTitle(QStringLiteral("x"));
    host.editor->setEnabled(false);
    MemoryPropertyBag empty;
    host.editor->readProperties(empty);
    QCOMPARE(host.editor->BackColor(), SystemColor::ButtonFace);
    QCOMPARE(host.editor->ForeColor(), SystemColor::WindowText);
    QCOMPARE(host.editor->Enabled(), true);
    QCOMPARE(host.editor->BackStyle(), qint16(1));
    QCOMPARE(host.editor->BorderStyle(), qint16(0));
    QCOMPARE(host.editor->Title(), QString());
    QCOMPARE(host.editor->ScaleMode(), qint16(1));
    QCOMPARE(host.editor->Font(), host.editor->ambientFont());
}

QTEST_MAIN(tst_kwMemoField)
#include "tst_kwMemoField.moc"
