#pragma once

// Conditions of a folder that also hold for root, who ignores file modes: a folder that cannot be
// written and a folder whose file system is full. Where modes do not stop this process, the
// folder is mounted over (read-only bind mount, or a tiny tmpfs) in a mount namespace private to
// the test's thread, which needs CAP_SYS_ADMIN. Each undoes itself when destroyed.

#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryFile>

#include <sched.h>
#include <sys/mount.h>

namespace kwFieldDeck::test {

inline bool canWriteIn(const QString &folder)
{
    QTemporaryFile probe(folder + QStringLiteral("/probe-XXXXXX"));
    return probe.open();
}

inline bool privateMountNamespace()
{
    static const bool done = unshare(CLONE_NEWNS) == 0
        && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return done;
}

class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString &folder)
        : m_folder(QDir(folder).absolutePath())
        , m_permissions(QFile::permissions(m_folder))
    {
        QFile::setPermissions(m_folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        if (canWriteIn(m_folder) && privateMountNamespace()) {
            const QByteArray path = QFile::encodeName(m_folder);
            m_mounted = mount(path.constData(), path.constData(), nullptr, MS_BIND, nullptr) == 0;
            if (m_mounted)
                mount(
                    nullptr, path.constData(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr);
        }
        m_effective = !canWriteIn(m_folder);
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
    bool isEffective() const { return m_effective; }

private:
    QString m_folder;
    QFileDevice::Permissions m_permissions;
    bool m_mounted = false;
    bool m_effective = false;
};

// An empty folder on a file system of the given size, created in place of (over) a folder.
class SmallFileSystem
{
public:
    SmallFileSystem(const QString &folder, int kilobytes)
        : m_folder(QDir(folder).absolutePath())
    {
        QDir().mkpath(m_folder);
        if (!privateMountNamespace())
            return;
        const QByteArray options = "size=" + QByteArray::number(kilobytes) + "k";
        m_mounted = mount("tmpfs", QFile::encodeName(m_folder).constData(), "tmpfs", 0,
                        options.constData())
            == 0;
    }
    ~SmallFileSystem()
    {
        if (m_mounted)
            umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
    }
    SmallFileSystem(const SmallFileSystem &) = delete;
    SmallFileSystem &operator=(const SmallFileSystem &) = delete;

    bool isMounted() const { return m_mounted; }

    // Writes a file that takes up what is left, so that no further byte fits.
    void fill() const
    {
        QFile filler(m_folder + QStringLiteral("/filler"));
        if (!filler.open(QIODevice::WriteOnly))
            return;
        const QByteArray block(4096, 'x');
        while (filler.write(block) == block.size() && filler.flush()) { }
        while (filler.write("x", 1) == 1 && filler.flush()) { }
    }

private:
    QString m_folder;
    bool m_mounted = false;
};

} // namespace kwFieldDeck::test
