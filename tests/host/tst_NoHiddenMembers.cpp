// No public class declares a member under a name that QWidget or QObject already uses: a Qt
// developer's grid->setEnabled(false) or field->setParent(x) must do what it does on any object.

#include <kwFieldDeck/kwFieldDeck>

#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

using namespace kwFieldDeck;

Q_DECLARE_METATYPE(const QMetaObject *)

namespace {

QString withoutComments(QString text)
{
    text.remove(QRegularExpression(
        QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption));
    text.remove(QRegularExpression(QStringLiteral("//[^\\n]*")));
    return text;
}

// The body of `class ... Name ...{ ... };` in a header, comments dropped; empty when not found.
QString classBody(const QString &path, const QString &name)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = withoutComments(QString::fromUtf8(file.readAll()));
    const QRegularExpression head(
        QStringLiteral("\\bclass\\s+(\\w+\\s+)?%1\\b[^;{]*\\{").arg(name));
    const QRegularExpressionMatch match = head.match(text);
    if (!match.hasMatch())
        return {};
    int depth = 1;
    qsizetype i = match.capturedEnd();
    for (; i < text.size() && depth > 0; ++i) {
        if (text.at(i) == QLatin1Char('{'))
            ++depth;
        else if (text.at(i) == QLatin1Char('}'))
            --depth;
    }
    return text.mid(match.capturedEnd(), i - match.capturedEnd() - 1);
}

// Every name called or declared as a function in a class body: what a member of the same name
// in a class derived from it would hide.
QSet<QString> functionNames(const QString &body)
{
    QSet<QString> names;
    const QRegularExpression call(QStringLiteral("\\b([A-Za-z_]\\w*)\\s*\\("));
    for (const QRegularExpressionMatch &m : call.globalMatch(body))
        names.insert(m.captured(1));
    return names;
}

// The member functions that a class declares outside its private part, overrides left out:
// overriding a virtual function is how a widget is meant to change it.
QStringList declaredMembers(const QString &body, const QString &className)
{
    QStringList names;
    bool open = false;
    const QRegularExpression access(QStringLiteral("^\\s*(public|protected|private|signals|"
                                                   "Q_SIGNALS|public\\s+slots)\\s*:"));
    const QRegularExpression function(QStringLiteral("\\b(~?[A-Za-z_]\\w*)\\s*\\("));
    QString statement;
    for (const QString &line : body.split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch label = access.match(line);
        if (label.hasMatch()) {
            open = label.captured(1) != QLatin1String("private");
            statement.clear();
            continue;
        }
        const QString trimmed = line.trimmed();
        // Qt's macros (Q_ENUM, Q_DECLARE_PRIVATE, ...) end without a semicolon.
        if (!open
            || (statement.isEmpty() && trimmed.startsWith(QLatin1String("Q_"))
                && !trimmed.startsWith(QLatin1String("Q_INVOKABLE"))))
            continue;
        statement += line + QLatin1Char(' ');
        if (!line.contains(QLatin1Char(';')) && !line.contains(QLatin1Char('}')))
            continue;
        const QString declaration = statement.trimmed();
        statement.clear();
        if (declaration.contains(QLatin1String("override")))
            continue;
        const QRegularExpressionMatch m = function.match(declaration);
        if (m.hasMatch() && m.captured(1) != className
            && m.captured(1) != QLatin1Char('~') + className
            && !m.captured(1).startsWith(QLatin1String("operator")))
            names << m.captured(1);
    }
    return names;
}

QStringList ownMethodNames(const QMetaObject &meta)
{
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << QString::fromLatin1(meta.method(i).name());
    return names;
}

QSet<QString> allMethodNames(const QMetaObject &meta)
{
    QSet<QString> names;
    for (int i = 0; i < meta.methodCount(); ++i)
        names << QString::fromLatin1(meta.method(i).name());
    return names;
}

QStringList ownPropertyNames(const QMetaObject &meta)
{
    QStringList names;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        names << QString::fromLatin1(meta.property(i).name());
    return names;
}

QSet<QString> allPropertyNames(const QMetaObject &meta)
{
    QSet<QString> names;
    for (int i = 0; i < meta.propertyCount(); ++i)
        names << QString::fromLatin1(meta.property(i).name());
    return names;
}

QStringList clashes(const QStringList &ours, const QSet<QString> &theirs)
{
    QStringList found;
    for (const QString &name : ours) {
        if (theirs.contains(name) && !found.contains(name))
            found << name;
    }
    return found;
}

QString qtHeader(const char *module, const char *file)
{
    return QLibraryInfo::path(QLibraryInfo::HeadersPath) + QLatin1Char('/') + QLatin1String(module)
        + QLatin1Char('/') + QLatin1String(file);
}

} // namespace

class tst_NoHiddenMembers : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        // What a derived class could hide: QWidget's members, those of its bases, and what its
        // meta-object lists (signals, slots and properties).
        m_qobject = functionNames(classBody(qtHeader("QtCore", "qobject.h"), "QObject"));
        m_qwidget = m_qobject
            + functionNames(classBody(qtHeader("QtWidgets", "qwidget.h"), "QWidget"))
            + functionNames(classBody(qtHeader("QtGui", "qpaintdevice.h"), "QPaintDevice"));
        // The parse is meant to see the members that matter; a broken parse fails here.
        for (const char *name : { "setParent", "deleteLater", "objectName", "setProperty" })
            QVERIFY2(m_qobject.contains(QLatin1String(name)), name);
        for (const char *name : { "setEnabled", "setFont", "setVisible", "font", "width" })
            QVERIFY2(m_qwidget.contains(QLatin1String(name)), name);
    }

    void publicClassHidesNoQtMember_data()
    {
        QTest::addColumn<QString>("header");
        QTest::addColumn<QString>("className");
        QTest::addColumn<bool>("widget");
        QTest::addColumn<QStringList>("mustSee");
        QTest::newRow("kwPropertyControl")
            << "kwPropertyControl.h"
            << "kwPropertyControl" << true << QStringList { "storedEnabled", "Refresh", "ReadDef" };
        QTest::newRow("Field") << "Field.h"
                               << "Field" << false
                               << QStringList { "setEnabled", "setValue", "SetFocus" };
        QTest::newRow("Fields") << "Fields.h"
                                << "Fields" << false << QStringList { "Add", "Remove", "begin" };
        QTest::newRow("DropDownValues")
            << "DropDownValues.h"
            << "DropDownValues" << false << QStringList { "Add", "Item" };
        QTest::newRow("DropDownValue") << "DropDownValue.h"
                                       << "DropDownValue" << false << QStringList { "setKey" };
    }

    void publicClassHidesNoQtMember()
    {
        QFETCH(QString, header);
        QFETCH(QString, className);
        QFETCH(bool, widget);
        QFETCH(QStringList, mustSee);
        const QString body = classBody(QStringLiteral(KW_PUBLIC_HEADERS "/") + header, className);
        QVERIFY2(!body.isEmpty(), qPrintable(header));
        const QStringList members = declaredMembers(body, className);
        for (const QString &name : std::as_const(mustSee))
            QVERIFY2(members.contains(name), qPrintable(name));
        const QStringList hidden = clashes(members, widget ? m_qwidget : m_qobject);
        QVERIFY2(hidden.isEmpty(), qPrintable(hidden.join(QLatin1String(", "))));
    }

    // Signals, slots, invokables and properties by the names that scripts, QML and Designer see.
    void metaObjectHidesNoQtName_data()
    {
        QTest::addColumn<const QMetaObject *>("meta");
        QTest::addColumn<const QMetaObject *>("base");
        QTest::newRow("kwPropertyControl")
            << &kwPropertyControl::staticMetaObject << &QWidget::staticMetaObject;
        QTest::newRow("Field") << &Field::staticMetaObject << &QObject::staticMetaObject;
        QTest::newRow("Fields") << &Fields::staticMetaObject << &QObject::staticMetaObject;
        QTest::newRow("DropDownValues")
            << &DropDownValues::staticMetaObject << &QObject::staticMetaObject;
        QTest::newRow("DropDownValue")
            << &DropDownValue::staticMetaObject << &QObject::staticMetaObject;
    }

    void metaObjectHidesNoQtName()
    {
        QFETCH(const QMetaObject *, meta);
        QFETCH(const QMetaObject *, base);
        const QStringList methods = clashes(ownMethodNames(*meta), allMethodNames(*base));
        QVERIFY2(methods.isEmpty(), qPrintable(methods.join(QLatin1String(", "))));
        const QStringList properties = clashes(ownPropertyNames(*meta), allPropertyNames(*base));
        QVERIFY2(properties.isEmpty(), qPrintable(properties.join(QLatin1String(", "))));
    }

    // QWidget's own calls reach the grid through a pointer to the grid as they do through a
    // QWidget pointer.
    void qtCallsActOnTheGrid()
    {
        kwPropertyControl grid;
        grid.setEnabled(false);
        QVERIFY(!grid.isEnabled());
        QVERIFY(!grid.storedEnabled());
        grid.setStoredEnabled(true);
        QVERIFY(!grid.isEnabled());
        QCOMPARE(grid.property("Enabled").toBool(), true);
        const QFont font(QStringLiteral("DejaVu Serif"), 17);
        grid.setFont(font);
        QCOMPARE(grid.Font(), grid.font());
        QCOMPARE(grid.font().pointSize(), 17);
        QVERIFY(grid.setProperty("Font", QFont(QStringLiteral("DejaVu Sans"), 11)));
        QCOMPARE(grid.font().pointSize(), 11);
    }

private:
    QSet<QString> m_qobject, m_qwidget;
};

QTEST_MAIN(tst_NoHiddenMembers)
#include "tst_NoHiddenMembers.moc"
