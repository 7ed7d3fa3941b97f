#include "util/WindowNotifications.h"

#include "platform/SettingsStore.h"

#include <QWidget>
#include <QtTest>

using namespace kwFieldDeck;

class tst_WindowNotifications : public QObject
{
    Q_OBJECT
private slots:
    void closedWindowPlacementIsRestoredOnNextLoad();
    void placementIsKeptPerApplicationTitle();
    void placementIsKeptPerWindow();
    void windowNeverLoadedStoresNothing();
    void storeThatCannotBeWrittenStillLetsTheWindowClose();
};

namespace {
std::unique_ptr<QWidget> makeWindow(const QString &name, const QSize &size = QSize(200, 150))
{
    auto window = std::make_unique<QWidget>();
    window->setObjectName(name);
    window->resize(size);
    return window;
}
} // namespace

void tst_WindowNotifications::closedWindowPlacementIsRestoredOnNextLoad()
{
    auto first = makeWindow(QStringLiteral("frmMemo"));
    windowLoaded(first.get(), QStringLiteral("Restore App"));
    first->show();
    first->setGeometry(40, 60, 420, 310);
    QVERIFY(QTest::qWaitForWindowExposed(first.get()));
    windowClosed(first.get());
    const QRect closedAt = first->geometry();
    first.reset();

    auto second = makeWindow(QStringLiteral("frmMemo"));
    windowLoaded(second.get(), QStringLiteral("Restore App"));
    QCOMPARE(second->size(), closedAt.size());
    QCOMPARE(second->pos(), closedAt.topLeft());
}

void tst_WindowNotifications::placementIsKeptPerApplicationTitle()
{
    auto first = makeWindow(QStringLiteral("frmMemo"));
    windowLoaded(first.get(), QStringLiteral("First App"));
    first->resize(500, 400);
    windowClosed(first.get());

    auto other = makeWindow(QStringLiteral("frmMemo"));
    windowLoaded(other.get(), QStringLiteral("Second App"));
    QCOMPARE(other->size(), QSize(200, 150));
}

void tst_WindowNotifications::placementIsKeptPerWindow()
{
    auto memo = makeWindow(QStringLiteral("frmMemo"));
    windowLoaded(memo.get(), QStringLiteral("Window App"));
    memo->resize(500, 400);
    windowClosed(memo.get());

    auto chooser = makeWindow(QStringLiteral("frmChooseFont"), QSize(300, 250));
    windowLoaded(chooser.get(), QStringLiteral("Window App"));
    QCOMPARE(chooser->size(), QSize(300, 250));
}

void tst_WindowNotifications::windowNeverLoadedStoresNothing()
{
    auto window = makeWindow(QStringLiteral("frmLoose"));
    window->resize(500, 400);
    windowClosed(window.get());
    QVERIFY(!QFile::exists(SettingsStore::filePath(QStringLiteral("frmLoose"))));
    windowLoaded(nullptr, QStringLiteral("Null App"));
    windowClosed(nullptr);
    QVERIFY(!QFile::exists(SettingsStore::filePath(QStringLiteral("Null App"))));
}

void tst_WindowNotifications::storeThatCannotBeWrittenStillLetsTheWindowClose()
{
    const QString appTitle = QStringLiteral("Blocked App");
    QVERIFY(QDir().mkpath(SettingsStore::filePath(appTitle)));
    auto window = makeWindow(QStringLiteral("frmMemo"));
    windowLoaded(window.get(), appTitle);
    window->resize(500, 400);
    bool closed = false;
    try {
        windowClosed(window.get());
        closed = true;
    } catch (...) {
    }
    QVERIFY(closed);
    QVERIFY(QFileInfo(SettingsStore::filePath(appTitle)).isDir());
}

QTEST_MAIN(tst_WindowNotifications)
#include "tst_WindowNotifications.moc"
