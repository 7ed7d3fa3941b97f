#include "FormWindow.h"

#include <kwFieldDeck/Field>
#include <kwFieldDeck/Fields>
#include <kwFieldDeck/kwPropertyControl>

#include <QApplication>
#include <QDialogButtonBox>
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace kwFieldDeck {

namespace {
// Rows shown without scrolling before the window stops growing.
constexpr int MostRowsShown = 16;
// Room for the editors right of the name column, in pixels.
constexpr int EditorColumnWidth = 300;

// Twips in a pixel of the screen, as the grid counts them: 1440 to the logical inch.
double twipsPerPixel(Qt::Orientation orientation)
{
    double dpi = 0.0;
    if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        dpi = orientation == Qt::Horizontal ? screen->logicalDotsPerInchX()
                                            : screen->logicalDotsPerInchY();
    }
    return 1440.0 / (dpi > 0 ? dpi : 96.0);
}
} // namespace

FormWindow::FormWindow(QWidget *parent)
    : QDialog(parent)
    , m_grid(new kwPropertyControl(this))
    , m_description(new QLabel(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    m_grid->setDescriptionLabel(m_description);

    m_description->setWordWrap(true);
    m_description->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_description->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    m_description->setMargin(4);
    m_description->setMinimumHeight(2 * fontMetrics().lineSpacing() + 12);
    m_description->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_description);
    layout->addWidget(m_buttons);

    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void FormWindow::fitToFields()
{
    int rows = 0;
    for (Field *field : *m_grid->Fields())
        rows += field->Visible() ? 1 : 0;
    m_grid->AutoSizeFieldNameWidths();

    // Half a row more than the rows themselves: the grid's scroll range counts whole row
    // heights against the viewport, and from this height on it needs no scrolling.
    const double shown = std::min(rows, MostRowsShown) + 0.5;
    const int height
        = int(std::ceil(shown * m_grid->RowHeight() / twipsPerPixel(Qt::Vertical))) + 4;
    const int width
        = int(m_grid->FieldNameWidth() / twipsPerPixel(Qt::Horizontal)) + EditorColumnWidth;
    m_grid->setMinimumSize(width, height);
    adjustSize();
    // The user may make the window smaller again; the grid scrolls then.
    m_grid->setMinimumSize(0, int(3 * m_grid->RowHeight() / twipsPerPixel(Qt::Vertical)));
}

void FormWindow::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_grid->Fields()->Count() > 0)
        m_grid->SetFocus();
}

QImage FormWindow::renderOffscreen()
{
    setAttribute(Qt::WA_DontShowOnScreen);
    show();
    QApplication::setActiveWindow(this);
    QApplication::processEvents();
    return grab().toImage();
}

} // namespace kwFieldDeck
