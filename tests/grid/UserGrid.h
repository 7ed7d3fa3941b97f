#pragma once

// A grid as a user meets it: shown in an active top-level window, with a description label, one
// row of every field type, and the dialogs and the memo window answered through their seams.

#include "grid/GridHost.h"
#include "memo/ModalShowDriver.h"

#include "editors/FieldKind.h"
#include "fieldmodel/DropDownValues_p.h"
#include "runtime/Dialogs.h"

#include <QDate>
#include <QLabel>

namespace kwFieldDeck::test {

class UserGrid : public GridHost
{
public:
    explicit UserGrid(float height = 2400, bool show = true)
        : GridHost(5000, height, show)
        , m_openFile(Dialogs::setOpenFileHandler([this](auto &) { return answer(); }))
        , m_browseFolder(Dialogs::setBrowseFolderHandler([this](auto &) { return answer(); }))
        , m_memoWindow([this](QDialog &dialog) {
            ++dialogs;
            dialog.hide();
            // The desktop hands the activation back to the window the memo window came from.
            QVERIFY(this->show());
        })
    {
        grid->setDescriptionLabel(&description);
    }

    ~UserGrid()
    {
        Dialogs::setOpenFileHandler(std::move(m_openFile));
        Dialogs::setBrowseFolderHandler(std::move(m_browseFolder));
    }

    // Closes an open list or calendar, and gives the activation back as the desktop would.
    void closePopup()
    {
        QWidget *popup = QApplication::activePopupWidget();
        if (!popup)
            return;
        QTest::keyClick(popup, Qt::Key_Escape);
        QCoreApplication::processEvents();
        QVERIFY(show());
    }

    // A field of the type with a typical value; its description names it.
    Field *addOfType(int type, const QString &name)
    {
        static const QVariant values[] = { QStringLiteral("abc"), 12, 1, 2, QDate(2024, 5, 6), 5,
            QStringLiteral("/tmp"), QStringLiteral("/tmp"), QStringLiteral("one\r\ntwo") };
        Field *field = add(name, lFieldTypes(type), {}, QStringLiteral("About ") + name);
        if (type == ftCombo) {
            field->DropDownValues()->Add(QStringLiteral("1"), QStringLiteral("One"));
            field->DropDownValues()->Add(QStringLiteral("2"), QStringLiteral("Two"));
        } else if (type == ftSlider) {
            field->setMin(0);
            field->setMax(10);
        }
        field->setValue(values[type - 1]);
        return field;
    }

    // The row's live editor, made for it as when the pointer comes to it.
    QWidget *editorOf(Field *field) const
    {
        if (d()->rowEditor().row() != field)
            d()->rowEditor().bind(field);
        return d()->rowEditor().editor();
    }

    Field *focusedField() const
    {
        return d()->rowEditor().holdsFocus() ? d()->rowEditor().row() : nullptr;
    }

    // Where the user is: the focused row, the highlighted row, the description shown.
    QString where() const
    {
        const Field *focused = focusedField(), *lit = d()->highlighted();
        return (focused ? focused->Name() : "-") + ", " + (lit ? lit->Name() : "-") + ", "
            + description.text();
    }

    // A key pressed where the focus is; Up and Down arrive as posted keys.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    // The wheel turned by notches (positive: towards the user) over a point of the view.
    void turnWheel(const QPoint &at, int notches) const
    {
        QWidget *target = view()->childAt(at) ? view()->childAt(at) : view();
        const QPoint local = target->mapFrom(view(), at);
        QWheelEvent wheel(local, target->mapToGlobal(local), QPoint(), QPoint(0, -120 * notches),
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(target, &wheel);
    }

    QLabel description;
    int dialogs = 0;
    QString dialogAnswer;

private:
    QString answer()
    {
        ++dialogs;
        return dialogAnswer;
    }

    Dialogs::OpenFileHandler m_openFile;
    Dialogs::BrowseFolderHandler m_browseFolder;
    ModalShowDriver m_memoWindow;
};

// A point inside a widget where a click takes the focus without opening a list or a calendar.
inline QPoint pointToClick(const QWidget *widget)
{
    return QPoint(qMin(5, widget->width() / 2), widget->height() / 2);
}

} // namespace kwFieldDeck::test
