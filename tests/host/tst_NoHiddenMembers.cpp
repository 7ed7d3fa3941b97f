// No public class declares a member or a property under a name that its Qt base already uses: a
// Qt developer's grid->setEnabled(false) or field->setParent(x) must do what it does on any
// object. Every class of every installed header is read, so a new header is checked as it comes.

#include <kwFieldDeck/kwFieldDeck>

#include <QDir>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

using namespace kwFieldDeck;

namespace {

const QRegularExpression::PatternOption Dot = QRegularExpression::DotMatchesEverythingOption;

QString withoutComments(const QString &path)
{
    QFile file(path);
    QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    text.remove(QRegularExpression(QStringLiteral("/\\*.*?\\*/"), Dot));
    return text.remove(QRegularExpression(QStringLiteral("//[^\\n]*")));
}

// The body of the class whose head starts at `from`, up to its closing brace.
QString bodyFrom(const QString &text, qsizetype from)
{
    int depth = 1;
    qsizetype i = from;
    for (; i < text.size() && depth > 0; ++i)
        depth += text.at(i) == QLatin1Char('{') ? 1 : text.at(i) == QLatin1Char('}') ? -1 : 0;
    return text.mid(from, i - from - 1);
}

// Every name called or declared as a function in a Qt class: what a derived member would hide.
QSet<QString> qtNames(const char *module, const char *file, const char *name)
{
    const QString text = withoutComments(QLibraryInfo::path(QLibraryInfo::HeadersPath)
        + QStringLiteral("/%1/%2").arg(QLatin1String(module), QLatin1String(file)));
    const QRegularExpressionMatch head
        = QRegularExpression(QStringLiteral("\\bclass\\s+(\\w+\\s+)?%1\\b[^;{]*\\{").arg(name))
              .match(text);
    QSet<QString> names;
    if (!head.hasMatch())
        return names;
    const QRegularExpression call(QStringLiteral("\\b([A-Za-z_]\\w*)\\s*\\("));
    for (const QRegularExpressionMatch &m : call.globalMatch(bodyFrom(text, head.capturedEnd())))
        names.insert(m.captured(1));
    return names;
}

struct PublicClass
{
    QString name;
    bool widget = false;
    // Its properties and functions, overrides left out (that is how Qt is meant to be used).
    QSet<QString> names;
};

QVector<PublicClass> publicClasses()
{
    QVector<PublicClass> classes;
    const QRegularExpression head(
        QStringLiteral("\\bclass\\s+KWFIELDDECK_EXPORT\\s+(\\w+)\\s*:\\s*public\\s+(\\w+)\\s*\\{"));
    const QRegularExpression property(
        QStringLiteral("Q_PROPERTY\\(\\s*.+?\\s\\**(\\w+)\\s+(READ|MEMBER)\\b"), Dot);
    const QRegularExpression macro(QStringLiteral("\\bQ_[A-Z_]+(\\([^()]*\\))?"));
    const QRegularExpression function(QStringLiteral("(~?\\b[A-Za-z_]\\w*)\\s*\\("));
    const QDir dir(QStringLiteral(KW_PUBLIC_HEADERS));
    for (const QString &header : dir.entryList({ QStringLiteral("*.h") })) {
        const QString text = withoutComments(dir.filePath(header));
        for (const QRegularExpressionMatch &m : head.globalMatch(text)) {
            PublicClass c { m.captured(1), m.captured(2) == QLatin1String("QWidget"), {} };
            QString body = bodyFrom(text, m.capturedEnd());
            for (const QRegularExpressionMatch &p : property.globalMatch(body))
                c.names << p.captured(1);
            body.remove(macro);
            for (const QString &statement : body.split(QLatin1Char(';'))) {
                const QString found = function.match(statement).captured(1);
                if (!found.isEmpty() && !statement.contains(QLatin1String("override"))
                    && found != c.name && found != QLatin1Char('~') + c.name
                    && !found.startsWith(QLatin1String("operator")))
                    c.names << found;
            }
            classes << c;
        }
    }
    return classes;
}

} // namespace

class tst_NoHiddenMembers : public QObject
{
    Q_OBJECT
private slots:
    void publicClassHidesNoQtName()
    {
        // QObject's, or QWidget's and its bases', members and properties, all reached by name.
        QSet<QString> object = qtNames("QtCore", "qobject.h", "QObject");
        QSet<QString> widget = object + qtNames("QtWidgets", "qwidget.h", "QWidget")
            + qtNames("QtGui", "qpaintdevice.h", "QPaintDevice");
        for (int i = 0; i < QWidget::staticMetaObject.propertyCount(); ++i) {
            const QString name = QLatin1String(QWidget::staticMetaObject.property(i).name());
            (i < QObject::staticMetaObject.propertyCount() ? object : widget) << name;
        }
        widget += object;
        const QVector<PublicClass> classes = publicClasses();
        QSet<QString> seen;
        for (const PublicClass &c : classes) {
            const QStringList hidden = QSet(c.names).intersect(c.widget ? widget : object).values();
            QVERIFY2(hidden.isEmpty(), qPrintable(c.name + ": " + hidden.join(", ")));
            seen += c.names;
        }
        // The parse sees what matters; a broken one fails here rather than passing unseen.
        for (const char *name : { "setParent", "objectName", "setEnabled", "font", "width" })
            QVERIFY2(widget.contains(QLatin1String(name)), name);
        QVERIFY(object.contains("deleteLater") && !object.contains("setFont"));
        QVERIFY(classes.size() >= 5);
        QCOMPARE(
            std::count_if(classes.begin(), classes.end(), [](auto &c) { return c.widget; }), 1);
        for (const char *name : { "storedEnabled", "ReadDef", "SetFocus", "setEnabled", "Add",
                 "begin", "Item", "setKey", "Changed", "Enabled", "Font", "Value", "definition" })
            QVERIFY2(seen.contains(QLatin1String(name)), name);
    }
};

QTEST_MAIN(tst_NoHiddenMembers)
#include "tst_NoHiddenMembers.moc"
