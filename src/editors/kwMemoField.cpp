#include "editors/kwMemoField.h"

#include "memo/ModalShow.h"
#include "memo/frmMemo.h"
#include "platform/TextBox.h"

namespace kwFieldDeck {

namespace {
const bool registered = registerEditor<kwMemoField>("kwMemoField");

const QString placeholder = QStringLiteral("(Text)");
} // namespace

kwMemoField::kwMemoField()
    : kwBrowseFieldControl("kwMemoField")
{
    Q_UNUSED(registered)
    // The row shows only the placeholder; the text is edited in the memo window.
    Text1->setLocked(true);
    forwardTextKeys();
}

QString kwMemoField::Value() const
{
    return trap(source("Property", "Value").constData(), [&] { return Text1->Tag(); });
}

void kwMemoField::setValue(const QString &text)
{
    changeProperty("Value", [&] {
        Text1->setTag(text);
        Text1->setText(placeholder);
    });
}

void kwMemoField::setTitle(const QString &title)
{
    // Kept and persisted only; the memo window is captioned by the field name. Intended.
    changeProperty("Title", [&] { m_Title = title; });
}

QVector<kwEditorControl::PersistedProperty> kwMemoField::persistedProperties()
{
    return {
        surfaceBackColorProperty(SystemColor::ButtonFace),
        textForeColorProperty(),
        enabledMemberProperty(true),
        textFontProperty(),
        surfaceBackStyleProperty(),
        surfaceBorderStyleProperty(),
        // Written only: reading skips the value and empties the box instead, so a memo never
        // comes back from a property bag; the grid assigns values at run time. Intended.
        textProperty(
            "Value", QString(), [this] { return Text1->Tag(); },
            [this](const QString &) { Text1->setText(QString()); }),
        textProperty(
            "Title", QString(), [this] { return m_Title; },
            [this](const QString &t) { m_Title = t; }),
        scaleModeProperty(),
    };
}

void kwMemoField::UserControl_InitProperties()
{
    trap(source("Sub", "UserControl_InitProperties").constData(), [&] {
        m_Enabled = true;
        m_Title.clear();
    });
}

void kwMemoField::btnBrowse_Click()
{
    trap(source("Sub", "btnBrowse_Click").constData(), [&] {
        frmMemo memo;
        memo.setTitle(QStringLiteral("Field: ") + m_FieldName);
        memo.setValue(Text1->Tag());
        showModal(memo);
        // The window has no cancel: the text it holds when it closes is the new value.
        Text1->setTag(memo.Value());
        Text1->setText(placeholder);
        // Raised explicitly, since the placeholder usually stays the same.
        emit Change();
    });
}

void kwMemoField::Text1_KeyDown(int &KeyCode, int &Shift)
{
    trap(source("Sub", "Text1_KeyDown").constData(), [&] {
        if (moveToNeighbourRow(KeyCode))
            return;
        if (KeyCode == KeyCode::F4 && Shift == 0)
            btnBrowse_Click();
    });
}

} // namespace kwFieldDeck
