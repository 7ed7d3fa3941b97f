#pragma once

#include <QDialog>

class QDialogButtonBox;
class QLabel;

namespace kwFieldDeck {

class kwPropertyControl;

// The form program's window: the grid, the description of the current row below it, and OK and
// Cancel. OK accepts, Cancel, Escape and closing the window reject.
class FormWindow : public QDialog
{
    Q_OBJECT
public:
    explicit FormWindow(QWidget *parent = nullptr);

    kwPropertyControl *grid() const { return m_grid; }
    QLabel *descriptionLabel() const { return m_description; }
    QDialogButtonBox *buttons() const { return m_buttons; }

    // Once the fields exist: fits the name column to the names and sizes the window so that
    // the rows show without scrolling (up to MostRowsShown rows).
    void fitToFields();

    // Renders the window as it would appear, without putting it on the screen.
    QImage renderOffscreen();

protected:
    // The first row is current when the window opens, so its description shows.
    void showEvent(QShowEvent *event) override;

private:
    kwPropertyControl *m_grid;
    QLabel *m_description;
    QDialogButtonBox *m_buttons;
};

} // namespace kwFieldDeck
