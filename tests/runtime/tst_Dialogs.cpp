#include "runtime/Dialogs.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_Dialogs : public QObject
{
    Q_OBJECT
private slots:
    void filterTextBecomesQtNameFilters_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("all files")
            << "All Files (*.*)|*.*" << QStringList { "All Files (*.*) (*)" };
        QTest::newRow("two pairs")
            << "Text Files (*.txt)|*.txt|All Files (*.*)|*.*"
            << QStringList { "Text Files (*.txt) (*.[tT][xX][tT])", "All Files (*.*) (*)" };
        QTest::newRow("several patterns")
            << "Images|*.png;*.JPG" << QStringList { "Images (*.[pP][nN][gG] *.[jJ][pP][gG])" };
        QTest::newRow("description without pattern is left out")
            << "Data (*.db)|*.db|Dangling" << QStringList { "Data (*.db) (*.[dD][bB])" };
    }

    void filterTextBecomesQtNameFilters()
    {
        QFETCH(QString, filter);
        QFETCH(QStringList, expected);
        QCOMPARE(Dialogs::nameFilters(filter), expected);
    }

    void missingStartFolderFallsBackToHome_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("expected");
        const QString texts = m_dir.filePath(QStringLiteral("Texts"));
        QVERIFY(QDir().mkpath(texts));
        QTest::newRow("other case and backslashes")
            << m_dir.path() + QStringLiteral("\\TEXTS\\") << texts;
        QTest::newRow("drive of another system") << QStringLiteral("C:\\") << QDir::homePath();
        QTest::newRow("missing") << m_dir.filePath(QStringLiteral("gone")) << QDir::homePath();
        QTest::newRow("empty") << QString() << QDir::homePath();
    }

    void missingStartFolderFallsBackToHome()
    {
        QFETCH(QString, folder);
        QFETCH(QString, expected);
        QCOMPARE(Dialogs::startFolder(folder), expected);
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(tst_Dialogs)
#include "tst_Dialogs.moc"
