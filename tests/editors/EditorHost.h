#pragma once

// A window holding one editor as the grid creates it (by class identifier, in its extender,
// placed in twips) between two line edits, so that Tab and Shift+Tab have somewhere to go.

#include "platform/ClassFactory.h"
#include "platform/CommandButton.h"
#include "platform/Control.h"
#include "platform/Dialogs.h"
#include "platform/TextBox.h"
#include "platform/WindowlessUserControl.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace kwFieldDeck::test {

template <typename Editor>
class EditorHost
{
public:
    explicit EditorHost(const QString &className, float width = 3000, float height = 315)
    {
        new QLineEdit(&window); // the row before
        extender = ClassFactory::create(
            libraryTitle() + QLatin1Char('.') + className, QStringLiteral("Editor1"), &window);
        extender->setContainer(&window);
        extender->Move(0, 450, width, height);
        extender->setVisible(true);
        after = new QLineEdit(&window);
        editor = qobject_cast<Editor *>(WindowlessUserControl::of(extender));
    }

    bool show()
    {
        window.show();
        window.activateWindow();
        return QTest::qWaitForWindowActive(&window);
    }

    // The editor's host surface, realized.
    QWidget *surface() const { return extender->widget(); }

    template <typename Child>
    Child *child(const char *name) const
    {
        return qobject_cast<Child *>(editor->Controls().Item(QLatin1String(name)));
    }

    QWidget window;
    Control *extender = nullptr;
    QLineEdit *after = nullptr;
    Editor *editor = nullptr;
};

// Answers the file-open and folder-browse dialogs with a fixed reply ("" is a cancel) and keeps
// every request, for as long as it lives.
struct DialogRecorder
{
    explicit DialogRecorder(const QString &reply = QString())
        : reply(reply)
    {
    }
    QString reply;
    QVector<Dialogs::OpenFileRequest> fileRequests;
    QVector<Dialogs::BrowseFolderRequest> folderRequests;
    Dialogs::OpenFileHandler previousFile = Dialogs::setOpenFileHandler([this](const auto &r) {
        fileRequests.append(r);
        return reply;
    });
    Dialogs::BrowseFolderHandler previousFolder
        = Dialogs::setBrowseFolderHandler([this](const auto &r) {
              folderRequests.append(r);
              return reply;
          });

    ~DialogRecorder()
    {
        Dialogs::setOpenFileHandler(std::move(previousFile));
        Dialogs::setBrowseFolderHandler(std::move(previousFolder));
    }
};

} // namespace kwFieldDeck::test
