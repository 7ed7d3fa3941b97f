#include "util/FitPath.h"

#include "platform/TextBox.h"

#include <QFontMetrics>
#include <QtTest>

using namespace kwFieldDeck;

namespace {
const QString longPath = QStringLiteral("/home/user/projects/field deck/examples/settings.def");
const QString windowsPath = QStringLiteral("C:\\Program Files\\Vendor\\Product\\data\\table.mdb");
} // namespace

class tst_FitPath : public QObject
{
    Q_OBJECT
private slots:
    void pathThatFitsIsUnchanged_data();
    void pathThatFitsIsUnchanged();
    void longPathKeepsItsFileNameAndFits_data();
    void longPathKeepsItsFileNameAndFits();
    void shortenedPathKeepsAsManyTrailingFoldersAsFit();
    void fileNameIsNeverCut();
    void textBoxWidthLessFivePixelsInItsFont();
    void emptyPathStaysEmpty();
};

void tst_FitPath::pathThatFitsIsUnchanged_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("slashes") << longPath;
    QTest::newRow("backslashes") << windowsPath;
    QTest::newRow("no folder") << QStringLiteral("settings.def");
}

void tst_FitPath::pathThatFitsIsUnchanged()
{
    QFETCH(QString, path);
    const QFont font;
    const int width = QFontMetrics(font).horizontalAdvance(path);
    QCOMPARE(FitPath(font, width, path), path);
    QCOMPARE(FitPath(font, width + 100, path), path);
}

void tst_FitPath::longPathKeepsItsFileNameAndFits_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<int>("shorterBy");
    QTest::newRow("slashes, one pixel too narrow") << longPath << "/settings.def" << 1;
    QTest::newRow("slashes, half the width") << longPath << "/settings.def" << -2;
    QTest::newRow("backslashes, one pixel too narrow") << windowsPath << "\\table.mdb" << 1;
    QTest::newRow("backslashes, half the width") << windowsPath << "\\table.mdb" << -2;
}

void tst_FitPath::longPathKeepsItsFileNameAndFits()
{
    QFETCH(QString, path);
    QFETCH(QString, fileName);
    QFETCH(int, shorterBy);
    const QFont font;
    const QFontMetrics metrics(font);
    const int full = metrics.horizontalAdvance(path);
    const int width = shorterBy > 0 ? full - shorterBy : full / -shorterBy;

    const QString fitted = FitPath(font, width, path);
    QVERIFY2(fitted.startsWith(QLatin1String("...")), qPrintable(fitted));
    QVERIFY2(fitted.endsWith(fileName), qPrintable(fitted));
    // What follows the ellipsis is the end of the path, starting at a separator.
    QVERIFY2(path.endsWith(fitted.mid(3)), qPrintable(fitted));
    QCOMPARE(fitted.at(3), fileName.at(0));
    QVERIFY2(metrics.horizontalAdvance(fitted) <= width, qPrintable(fitted));
}

void tst_FitPath::shortenedPathKeepsAsManyTrailingFoldersAsFit()
{
    const QFont font;
    const QFontMetrics metrics(font);
    const QString twoFolders = QStringLiteral(".../field deck/examples/settings.def");
    const QString oneFolder = QStringLiteral(".../examples/settings.def");
    QCOMPARE(FitPath(font, metrics.horizontalAdvance(twoFolders), longPath), twoFolders);
    QCOMPARE(FitPath(font, metrics.horizontalAdvance(twoFolders) - 1, longPath), oneFolder);
}

void tst_FitPath::fileNameIsNeverCut()
{
    const QFont font;
    QCOMPARE(FitPath(font, 10, longPath), QStringLiteral(".../settings.def"));
    QCOMPARE(FitPath(font, 0, windowsPath), QStringLiteral("...\\table.mdb"));
    QCOMPARE(FitPath(font, 0, QStringLiteral("a-very-long-file-name-without-folders.txt")),
        QStringLiteral("a-very-long-file-name-without-folders.txt"));
}

void tst_FitPath::textBoxWidthLessFivePixelsInItsFont()
{
    TextBox box(QStringLiteral("Text1"));
    QFont font(QStringLiteral("Sans"), 14);
    font.setBold(true);
    box.setFont(font);
    const QFontMetrics metrics(box.Font());
    const QString oneFolder = QStringLiteral(".../examples/settings.def");
    const int pixels = metrics.horizontalAdvance(oneFolder);

    box.setWidth(float((pixels + 5) * twipsPerPixelX()));
    QCOMPARE(FitPath(&box, longPath), oneFolder);
    box.setWidth(float((pixels + 4) * twipsPerPixelX()));
    QCOMPARE(FitPath(&box, longPath), QStringLiteral(".../settings.def"));
}

void tst_FitPath::emptyPathStaysEmpty()
{
    QCOMPARE(FitPath(QFont(), 0, QString()), QString());
    TextBox box(QStringLiteral("Text1"));
    QCOMPARE(FitPath(&box, QString()), QString());
}

QTEST_MAIN(tst_FitPath)
#include "tst_FitPath.moc"
