#include "editors/kwBrowseField.h"

#include "editors/kwTextBox.h"
#include "runtime/Twips.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include <algorithm>

namespace kwFieldDeck {

namespace {
// The button is 255 twips square at the right end; the box leaves 20 twips before it and sits
// 15 below the row's top.
constexpr double ButtonSide = 255;
constexpr double ButtonGap = 20;
constexpr double BoxTop = 15;
} // namespace

kwBrowseField::kwBrowseField(Box box, QWidget *parent)
    : QWidget(parent)
    , Text1(new kwTextBox(this))
    , btnBrowse(new QPushButton(QStringLiteral("..."), this))
    , m_browseOnF4(box == Box::Memo)
{
    // The surface is opaque in the canvas colour, as the idle row is painted.
    setAutoFillBackground(true);
    Text1->setObjectName(QStringLiteral("Text1"));
    btnBrowse->setObjectName(QStringLiteral("btnBrowse"));
    btnBrowse->setAutoDefault(false);
    if (box == Box::Memo) {
        // The text is edited in the memo window; Up and Down in the box move between rows.
        Text1->setReadOnly(true);
        Text1->setProperty("kwRowKeys", true);
    }
    Text1->installEventFilter(this);
    btnBrowse->installEventFilter(this);
    connect(Text1, &kwTextBox::Change, this, &kwBrowseField::Change);
    connect(btnBrowse, &QPushButton::clicked, this, &kwBrowseField::Browse);
}

void kwBrowseField::resizeEvent(QResizeEvent *)
{
    const int side = twipsToPixelsX(ButtonSide);
    const int top = twipsToPixelsY(BoxTop);
    btnBrowse->setGeometry(width() - side, 0, side, twipsToPixelsY(ButtonSide));
    Text1->setGeometry(0, top, std::max(0, width() - twipsToPixelsX(ButtonSide + ButtonGap)),
        std::max(0, height() - top));
}

bool kwBrowseField::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Text1 && m_browseOnF4 && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_F4 && key->modifiers() == Qt::NoModifier) {
            emit Browse();
            return true;
        }
    }
    if (event->type() != QEvent::FocusIn)
        return QWidget::eventFilter(watched, event);
    if (watched == btnBrowse) {
        // A click browses through the button's own click, and the focus coming back from the
        // dialog is no new arrival; any other arrival browses at once (intended).
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason)
            return false;
        if (reason != Qt::MouseFocusReason)
            emit Browse();
    }
    emit HasFocus();
    return QWidget::eventFilter(watched, event);
}

} // namespace kwFieldDeck
