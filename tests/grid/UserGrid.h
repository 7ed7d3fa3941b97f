#pragma once

// A grid as a user meets it: shown in an active top-level window, with a description label, one
// row of every field type, and the dialogs and the memo window answered through their seams.

#include "grid/GridHost.h"
#include "memo/ModalShowDriver.h"

#include "editors/FieldKind.h"
#include "fieldmodel/DropDownValues_p.h"
#include "runtime/Dialogs.h"

#include <QApplication>
#include <QDate>
#include <QLabel>

namespace kwFieldDeck::test {

struct FieldKind
{
    lFieldTypes type;
    const char *name;
};

inline const QVector<FieldKind> &everyFieldType()
{
    static const QVector<FieldKind> kinds = {
        { ftText, "Text" },
        { ftNumeric, "Numeric" },
        { ftCheckBox, "CheckBox" },
        { ftCombo, "Combo" },
        { ftDate, "Date" },
        { ftSlider, "Slider" },
        { ftFileSelector, "FileSelector" },
        { ftFolderSelector, "FolderSelector" },
        { ftMemo, "Memo" },
    };
    return kinds;
}

// Whether arriving at the type's "..." button opens its dialog or window.
inline bool hasBrowseButton(int type)
{
    return type == ftFileSelector || type == ftFolderSelector || type == ftMemo;
}

class UserGrid : public GridHost
{
public:
    explicit UserGrid(float height = 2400, bool show = true)
        : GridHost(5000, height, show)
        , m_openFile(Dialogs::setOpenFileHandler([this](const Dialogs::OpenFileRequest &) {
            ++dialogs;
            return dialogAnswer;
        }))
        , m_browseFolder(
              Dialogs::setBrowseFolderHandler([this](const Dialogs::BrowseFolderRequest &) {
                  ++dialogs;
                  return dialogAnswer;
              }))
        , m_memoWindow([this](QDialog &dialog) {
            ++dialogs;
            dialog.hide();
            // The desktop hands the activation back to the window the memo window came from.
            window.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&window));
        })
    {
        grid->setDescriptionLabel(&description);
    }

    ~UserGrid()
    {
        Dialogs::setOpenFileHandler(std::move(m_openFile));
        Dialogs::setBrowseFolderHandler(std::move(m_browseFolder));
    }

    // Closes a drop-down list or calendar that is open, as a user who picks nothing does, and
    // gives the activation back to the grid's window as the desktop would.
    void closePopup()
    {
        QWidget *popup = QApplication::activePopupWidget();
        if (!popup)
            return;
        QTest::keyClick(popup, Qt::Key_Escape);
        QCoreApplication::processEvents();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    // A field of the type with a typical value; its description names it.
    Field *addOfType(int type, const QString &name)
    {
        Field *field = add(name, lFieldTypes(type), {}, QStringLiteral("About ") + name);
        switch (type) {
        case ftText:
            field->setValue(QStringLiteral("abc"));
            break;
        case ftNumeric:
            field->setValue(12);
            break;
        case ftCheckBox:
            field->setValue(1);
            break;
        case ftCombo:
            field->DropDownValues()->Add(QStringLiteral("1"), QStringLiteral("One"));
            field->DropDownValues()->Add(QStringLiteral("2"), QStringLiteral("Two"));
            field->setValue(2);
            break;
        case ftDate:
            field->setValue(QDate(2024, 5, 6));
            break;
        case ftSlider:
            field->setMin(0);
            field->setMax(10);
            field->setValue(5);
            break;
        case ftFileSelector:
        case ftFolderSelector:
            field->setValue(QStringLiteral("/tmp"));
            break;
        case ftMemo:
            field->setValue(QStringLiteral("one\r\ntwo"));
            break;
        }
        return field;
    }

    void addEveryType(const QString &suffix = {})
    {
        for (const FieldKind &kind : everyFieldType())
            addOfType(kind.type, QLatin1String(kind.name) + suffix);
    }

    // The live editor of the field's row, made for it if it has none yet, as the row gets one
    // when the pointer comes to it.
    QWidget *editorOf(Field *field) const
    {
        if (d()->rowEditor().row() != field)
            d()->rowEditor().bind(field);
        return d()->rowEditor().editor();
    }

    // The field whose editor holds the focus, or null.
    Field *focusedField() const
    {
        return d()->rowEditor().holdsFocus() ? d()->rowEditor().row() : nullptr;
    }

    // The fields whose name cells show the highlight.
    QVector<Field *> highlighted() const
    {
        QVector<Field *> rows;
        if (Field *field = d()->highlighted())
            rows << field;
        return rows;
    }

    // The parts of a row's live editor that take the focus from a click, in their order.
    QVector<QWidget *> focusableParts(Field *field) const
    {
        QWidget *editor = editorOf(field);
        QVector<QWidget *> parts;
        if (editor->focusPolicy() != Qt::NoFocus)
            return { editor };
        for (QWidget *part : editor->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
            if (part->focusPolicy() & Qt::ClickFocus)
                parts << part;
        }
        return parts;
    }

    // The middle of a row's name cell, in the viewport.
    QPoint nameCellPoint(const Field *field) const
    {
        return view()->nameCellRect(FieldPrivate::get(field)->m_row).center();
    }

    QLabel description;
    // Message boxes are answered, never left waiting for a user.
    MessageRecorder messages;
    int dialogs = 0;
    QString dialogAnswer;

private:
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
