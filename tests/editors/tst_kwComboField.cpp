#include "EditorHost.h"

#include "editors/kwComboField.h"
#include "platform/ComboBox.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFocusEvent>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwComboField>;

namespace {
void fill(ComboBox *combo)
{
    const QList<QPair<QString, int>> entries
        = { { "Red", 3 }, { "Blue", 7 }, { "red", 7 }, { "Zero", 0 } };
    for (const auto &[text, data] : entries) {
        combo->AddItem(text);
        combo->setItemData(combo->NewIndex(), data);
    }
}
} // namespace

class tst_kwComboField : public QObject
{
    Q_OBJECT
private slots:
    // From the second 7 ("red") selected: a value matching nothing keeps the selection, raises
    // no Change and is the only one that calls property-changed. Intended.
    void valueSelectsTheFirstMatchingEntry_data()
    {
        QTest::addColumn<bool>("useItemData");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("read");
        QTest::addColumn<bool>("matched");
        QTest::newRow("data 7") << true << "7" << 1 << "7" << true;
        QTest::newRow("data 7 followed by letters") << true << "7abc" << 1 << "7" << true;
        QTest::newRow("data 7.5") << true << "7.5" << 2 << "7" << false;
        QTest::newRow("no leading number matches 0") << true << "abc" << 3 << "0" << true;
        QTest::newRow("first of two texts, in any case") << false << "RED" << 0 << "Red" << true;
        QTest::newRow("no such text") << false << "Green" << 2 << "red" << false;
    }
    void valueSelectsTheFirstMatchingEntry()
    {
        QFETCH(bool, useItemData);
        QFETCH(QString, value);
        QFETCH(int, index);
        QFETCH(QString, read);
        QFETCH(bool, matched);
        Host host(QStringLiteral("kwComboField"));
        host.editor->setUseItemData(useItemData);
        fill(host.editor->ComboControl());
        host.editor->ComboControl()->setListIndex(2);
        QSignalSpy changes(host.editor, &kwComboField::Change);
        QSignalSpy changed(host.editor, &WindowlessUserControl::PropertyChanged);
        host.editor->setValue(value);
        QCOMPARE(host.editor->ComboControl()->ListIndex(), index);
        QCOMPARE(host.editor->Value(), read);
        QCOMPARE(changes.count(), matched ? 1 : 0);
        QCOMPARE(changed.count(), matched ? 0 : 1);
    }

    // Focus raises Change before HasFocus: intended.
    void focusRaisesChangeThenHasFocusAndPickingRaisesChange()
    {
        Host host(QStringLiteral("kwComboField"));
        QVERIFY(host.show());
        fill(host.editor->ComboControl());
        host.editor->setValue(QStringLiteral("3"));
        QStringList events;
        connect(host.editor, &kwComboField::Change, this, [&] { events << "Change"; });
        connect(host.editor, &kwComboField::HasFocus, this, [&] { events << "HasFocus"; });
        host.editor->SetFocus();
        QWidget *box = host.editor->ComboControl()->widget();
        // The focus coming back when the list closes reports nothing.
        QFocusEvent away(QEvent::FocusOut, Qt::PopupFocusReason);
        QApplication::sendEvent(box, &away);
        QFocusEvent back(QEvent::FocusIn, Qt::PopupFocusReason);
        QApplication::sendEvent(box, &back);
        QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(host.editor->Value(), QStringLiteral("7"));
        QCOMPARE(events, QStringList({ "Change", "HasFocus", "Change" }));
    }

    // The list window is built when first opened, and then shows the entries in the font the
    // editor was given before, and in any given after.
    void listWindowShowsTheEditorsFont()
    {
        Host host(QStringLiteral("kwComboField"));
        QVERIFY(host.show());
        fill(host.editor->ComboControl());
        auto *box = qobject_cast<QComboBox *>(host.editor->ComboControl()->widget());
        QFont font = box->font();
        font.setPointSize(font.pointSize() + 5);
        host.editor->setFont(font);
        QCOMPARE(box->font(), font);
        QVERIFY(!box->findChild<QAbstractItemView *>());
        box->showPopup();
        QTRY_VERIFY(box->view()->isVisible());
        QCOMPARE(box->view()->font(), font);
        QCOMPARE(box->view()->model()->rowCount(), 4);
        box->hidePopup();
        font.setItalic(true);
        host.editor->setFont(font);
        QCOMPARE(box->view()->font(), font);
    }
};

QTEST_MAIN(tst_kwComboField)
#include "tst_kwComboField.moc"
