#include "editors/kwComboField.h"

#include "runtime/Twips.h"

#include <QFocusEvent>

#include <algorithm>

namespace kwFieldDeck {

kwComboField::kwComboField(QWidget *parent)
    : QWidget(parent)
    , cbo(new QComboBox(this))
{
    // The surface is opaque in the canvas colour, as the idle row is painted.
    setAutoFillBackground(true);
    cbo->setObjectName(QStringLiteral("cbo"));
    cbo->setInsertPolicy(QComboBox::NoInsert);
    cbo->installEventFilter(this);
    connect(cbo, &QComboBox::currentIndexChanged, this, [this] {
        if (!m_showing)
            emit Change();
    });
}

void kwComboField::showEntries(const QVector<ComboEntry> &entries, int listIndex)
{
    m_showing = true;
    cbo->clear();
    for (const ComboEntry &entry : entries)
        cbo->addItem(entry.text, QVariant::fromValue<qint32>(entry.itemData));
    cbo->setCurrentIndex(listIndex);
    m_showing = false;
}

// The box sits 15 twips below the row's top and ends 20 short of its right end; its height
// follows its font, within the cell.
void kwComboField::resizeEvent(QResizeEvent *)
{
    const int top = twipsToPixelsY(15);
    cbo->setGeometry(0, top, std::max(0, width() - twipsToPixelsX(20)),
        std::max(0, std::min(cbo->sizeHint().height(), height() - top)));
}

bool kwComboField::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == cbo && event->type() == QEvent::FocusIn) {
        // The focus coming back from the closed list or another window is no new arrival.
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            // Entering the box reports a change first, then the focus: intended.
            emit Change();
            emit HasFocus();
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace kwFieldDeck
