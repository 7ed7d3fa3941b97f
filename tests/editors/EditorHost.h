#pragma once

// A window holding one editor as the grid creates it: by class identifier, wrapped in its
// extender, placed in twips, between two line edits so that Tab and Shift+Tab have somewhere
// to go.

#include "platform/ClassFactory.h"
#include "platform/Control.h"
#include "platform/Dialogs.h"

#include <QLineEdit>
#include <QTest>
#include <QWidget>

#include <QVector>

namespace kwFieldDeck::test {

template <typename Editor>
class EditorHost
{
public:
    explicit EditorHost(const char *className, float width = 3000, float height = 315)
    {
        window.resize(360, 120);
        before = new QLineEdit(&window);
        before->setObjectName(QStringLiteral("before"));
        before->setGeometry(0, 0, 100, 20);
        extender
            = ClassFactory::create(libraryTitle() + QLatin1Char('.') + QLatin1String(className),
                QStringLiteral("Editor1"), &window);
        extender->setContainer(&window);
        extender->Move(0, 450, width, height);
        extender->setVisible(true);
        after = new QLineEdit(&window);
        after->setObjectName(QStringLiteral("after"));
        after->setGeometry(0, 90, 100, 20);
        editor = qobject_cast<Editor *>(extender->widget());
    }

    // Shows the window and makes it active, for tests of focus and keys.
    bool show()
    {
        window.show();
        window.activateWindow();
        return QTest::qWaitForWindowActive(&window);
    }

    template <typename Child>
    Child *child(const char *name) const
    {
        return qobject_cast<Child *>(editor->Controls().Item(QLatin1String(name)));
    }

    QWidget window;
    QLineEdit *before = nullptr;
    QLineEdit *after = nullptr;
    Control *extender = nullptr;
    Editor *editor = nullptr;
};

// Answers the file-open and folder-browse dialogs with a fixed reply ("" is a cancel) and keeps
// every request, for as long as it lives.
class DialogRecorder
{
public:
    explicit DialogRecorder(const QString &reply = QString())
        : m_previousFile(Dialogs::setOpenFileHandler([this](const Dialogs::OpenFileRequest &r) {
            fileRequests.append(r);
            return this->reply;
        }))
        , m_previousFolder(
              Dialogs::setBrowseFolderHandler([this](const Dialogs::BrowseFolderRequest &r) {
                  folderRequests.append(r);
                  return this->reply;
              }))
        , reply(reply)
    {
    }
    ~DialogRecorder()
    {
        Dialogs::setOpenFileHandler(std::move(m_previousFile));
        Dialogs::setBrowseFolderHandler(std::move(m_previousFolder));
    }
    DialogRecorder(const DialogRecorder &) = delete;
    DialogRecorder &operator=(const DialogRecorder &) = delete;

private:
    Dialogs::OpenFileHandler m_previousFile;
    Dialogs::BrowseFolderHandler m_previousFolder;

public:
    QString reply;
    QVector<Dialogs::OpenFileRequest> fileRequests;
    QVector<Dialogs::BrowseFolderRequest> folderRequests;
};

} // namespace kwFieldDeck::test
