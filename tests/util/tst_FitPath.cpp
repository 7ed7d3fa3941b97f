#include "runtime/FitPath.h"

#include <QFontMetrics>
#include <QtTest>

using namespace kwFieldDeck;

class tst_FitPath : public QObject
{
    Q_OBJECT
private slots:
    void pathIsFittedKeepingItsFileName_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("narrower"); // pixels less than the whole path; -2: half of it
        QTest::addColumn<QString>("fileName");
        const QString slashes
            = QStringLiteral("/home/user/projects/field deck/examples/settings.def");
        const QString backslashes = QStringLiteral("C:\\Program Files\\Vendor\\data\\table.mdb");
        QTest::newRow("fits") << slashes << 0 << "/settings.def";
        QTest::newRow("one pixel too narrow") << slashes << 1 << "/settings.def";
        QTest::newRow("half the width") << slashes << -2 << "/settings.def";
        QTest::newRow("no width at all") << slashes << 100000 << "/settings.def";
        QTest::newRow("backslashes, one pixel too narrow") << backslashes << 1 << "\\table.mdb";
        QTest::newRow("backslashes, half the width") << backslashes << -2 << "\\table.mdb";
    }

    void pathIsFittedKeepingItsFileName()
    {
        QFETCH(QString, path);
        QFETCH(int, narrower);
        QFETCH(QString, fileName);
        const QFont font;
        const QFontMetrics metrics(font);
        const int full = metrics.horizontalAdvance(path);
        const int width = qMax(0, narrower < 0 ? full / -narrower : full - narrower);
        const QString fitted = FitPath(font, width, path);
        if (width >= full)
            QCOMPARE(fitted, path);
        QVERIFY2(fitted.endsWith(fileName), qPrintable(fitted));
        if (fitted == path)
            return;
        // "..." and the end of the path from a separator on: as many folders as fit, the file name
        // even when it alone does not fit.
        QVERIFY2(fitted.startsWith(QLatin1String("...")) && path.endsWith(fitted.mid(3)),
            qPrintable(fitted));
        QCOMPARE(fitted.at(3), fileName.at(0));
        QVERIFY2(metrics.horizontalAdvance(fitted) <= width || fitted.mid(3) == fileName,
            qPrintable(fitted));
        const qsizetype longer = path.lastIndexOf(fileName.at(0), path.size() - fitted.size() + 2);
        if (longer > 3) // the next folder would still leave a shorter text than the path
            QVERIFY2(metrics.horizontalAdvance(QStringLiteral("...") + path.mid(longer)) > width,
                qPrintable(fitted));
    }
};

QTEST_MAIN(tst_FitPath)
#include "tst_FitPath.moc"
