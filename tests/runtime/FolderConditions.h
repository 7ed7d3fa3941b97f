#pragma once

// A folder that cannot be written, also for root, who ignores file modes: where modes do not stop
// this process, the folder is bind-mounted read-only in a mount namespace private to the test's
// thread (needs CAP_SYS_ADMIN). It undoes itself when destroyed.

#include <QDir>
#include <QFile>
#include <QTemporaryFile>

#include <sched.h>
#include <sys/mount.h>

namespace kwFieldDeck::test {

class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString &folder)
        : m_folder(QDir(folder).absolutePath())
        , m_permissions(QFile::permissions(m_folder))
    {
        QFile::setPermissions(m_folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const QByteArray path = QFile::encodeName(m_folder);
        if (!isEffective() && privateMountNamespace()
            && mount(path.constData(), path.constData(), nullptr, MS_BIND, nullptr) == 0) {
            m_mounted = true;
            mount(nullptr, path.constData(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr);
        }
    }
    ~ReadOnlyFolder()
    {
        if (m_mounted)
            umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
        QFile::setPermissions(m_folder, m_permissions);
    }
    ReadOnlyFolder(const ReadOnlyFolder &) = delete;
    ReadOnlyFolder &operator=(const ReadOnlyFolder &) = delete;

    // False when neither way could stop this process from writing there.
    bool isEffective() const
    {
        QTemporaryFile probe(m_folder + QStringLiteral("/probe-XXXXXX"));
        return !probe.open();
    }

private:
    static bool privateMountNamespace()
    {
        static const bool done = unshare(CLONE_NEWNS) == 0
            && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        return done;
    }

    QString m_folder;
    QFileDevice::Permissions m_permissions;
    bool m_mounted = false;
};

} // namespace kwFieldDeck::test
