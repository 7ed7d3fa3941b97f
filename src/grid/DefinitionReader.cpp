// kwPropertyControl: the definition language (ReadDef, AddFieldByDefString, CleanDefString) and
// definition files (LoadDefFile).

#include "grid/kwPropertyControl_p.h"

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "fieldmodel/lFieldTypes_p.h"
#include "grid/DefinitionText.h"
#include "runtime/Database.h"
#include "runtime/Error.h"
#include "runtime/FileSystem.h"
#include "runtime/Files.h"
#include "runtime/MessageBox.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "runtime/Values.h"
#include <kwFieldDeck/DropDownValues.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QStringList>
#include <QStringTokenizer>
#include <QVector>

#include <cmath>
#include <limits>

namespace kwFieldDeck {

namespace {

const QString CRLF = QStringLiteral("\r\n");
const QString DefinitionFileHeader = QStringLiteral("PROPERTY CONTROL DEFINITION FILE");

void ShowMessage(const QString &prompt, const QString &title = QStringLiteral("kwPropertyControl"))
{
    MsgBox(prompt, MsgBoxStyle::Critical | MsgBoxStyle::OKOnly, title);
}

// The stored field-name width and row height are single-precision numbers.
float toSingle(double value)
{
    if (std::isfinite(value) && std::fabs(value) > std::numeric_limits<float>::max())
        raise(ErrOverflow);
    return float(value);
}

// The line without the blanks around it; tabs are dropped wherever they stand. A line without a
// tab stays a view into the definition, so reading copies only the values it keeps.
QStringView trimmedLine(QStringView text, QString &withoutTabs)
{
    while (!text.isEmpty() && text.front() == u' ')
        text = text.mid(1);
    while (!text.isEmpty() && text.back() == u' ')
        text.chop(1);
    if (!text.contains(u'\t'))
        return text;
    withoutTabs = text.toString();
    withoutTabs.remove(u'\t');
    return withoutTabs;
}

QStringView trimmedBlanks(QStringView text)
{
    while (!text.isEmpty() && text.front() == u' ')
        text = text.mid(1);
    while (!text.isEmpty() && text.back() == u' ')
        text.chop(1);
    return text;
}

// The first and the second piece of a line cut at "=": the key and its value (which ends at a
// second "=", if there is one).
QStringView keyOf(QStringView line)
{
    const qsizetype equals = line.indexOf(u'=');
    return equals < 0 ? line : line.left(equals);
}

QStringView valueOf(QStringView line)
{
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0)
        return {};
    const QStringView rest = line.mid(equals + 1);
    const qsizetype next = rest.indexOf(u'=');
    return next < 0 ? rest : rest.left(next);
}

bool is(QStringView text, QLatin1String word)
{
    return text.size() == word.size() && text.compare(word, Qt::CaseInsensitive) == 0;
}

// The type's number: its place in the type-name list, 0 when it is none of them.
int fieldTypeNumber(const QString &type)
{
    static const QHash<QString, int> numbers = [] {
        QHash<QString, int> byName;
        const QStringList names = fieldTypeNames().split(QLatin1Char(','));
        for (int i = 0; i < names.size(); ++i)
            byName.insert(names.at(i), i + 1);
        return byName;
    }();
    return numbers.value(type, 0);
}

// The folder of the definition file that LoadDefFile is reading, "" for a definition string.
QString &DefinitionFolder()
{
    static QString folder;
    return folder;
}

class DefinitionFolderScope
{
public:
    explicit DefinitionFolderScope(const QString &folder)
        : m_previous(std::exchange(DefinitionFolder(), folder))
    {
    }
    ~DefinitionFolderScope() { DefinitionFolder() = m_previous; }
    DefinitionFolderScope(const DefinitionFolderScope &) = delete;
    DefinitionFolderScope &operator=(const DefinitionFolderScope &) = delete;

private:
    QString m_previous;
};

// The database file named by DB, as it is on disk, or "" when there is none. DB comes upper-cased,
// so names are matched without regard to case. A relative name is looked for beside the
// definition file being loaded first, then in the current folder.
QString DatabaseFile(const QString &db)
{
    QStringList candidates;
    if (QDir::isRelativePath(QString(db).replace(QLatin1Char('\\'), QLatin1Char('/')))
        && !DefinitionFolder().isEmpty())
        candidates << DefinitionFolder() + QLatin1Char('/') + db;
    candidates << db;
    for (const QString &candidate : std::as_const(candidates)) {
        if (FileSystem::FileExists(candidate))
            return FileSystem::resolvePath(candidate);
    }
    return QString();
}

// INITDIR comes upper-cased: a folder that exists in other letter case is handed on as it is on
// disk; anything else is handed on as written, for the selector's own fall-back.
QString InitialFolder(const QString &initDir)
{
    return FileSystem::FolderExists(initDir) ? FileSystem::resolvePath(initDir) : initDir;
}

// The keys of one field block. All values but VALUE and DESCRIPTION are kept upper-cased.
struct BlockKeys
{
    QString TYPE, MIN, MAX, ENABLED, TITLE, INITDIR, FILTER, DB, TABLE, LISTFIELD, VALUEFIELD;
    QString VALUE;
    // This library's own key: the field's help text, which the language otherwise leaves empty.
    QString DESCRIPTION;
    qint32 SIZE = 0;
};

struct ComboItem
{
    QString Key;
    QString Text;
};

// The state of one ReadDef call, fed line by line.
class DefinitionReader
{
public:
    DefinitionReader(
        Fields &fields, float &fieldNameWidth, float &rowHeight, Field *&lastAddedField)
        : m_Fields(fields)
        , m_FieldNameWidth(fieldNameWidth)
        , m_RowHeight(rowHeight)
        , m_LastAddedField(lastAddedField)
    {
    }

    void ReadLine(QStringView text);

private:
    void ReadOutsideBlock(QStringView line);
    void StartBlock(QStringView fieldName);
    bool ReadKey(QStringView line);
    void ReadBlockLine(QStringView line);
    void TakeItem(QStringView line);
    void CompleteBlock();
    void ApplyTypeKeys(Field *field, qint32 type);
    void FillComboFromItems(Field *field);
    bool FillComboFromDatabase(Field *field);
    void AddAutomaticKeyItem(Field *field, const QString &text);

    Fields &m_Fields;
    float &m_FieldNameWidth;
    float &m_RowHeight;
    Field *&m_LastAddedField;

    bool m_InField = false;
    bool m_InItems = false;
    QVector<ComboItem> m_Items;
    qint32 m_AutoKey = 0;
    QString m_FieldName;
    BlockKeys m_Keys;
};

void DefinitionReader::ReadLine(QStringView text)
{
    QString withoutTabs;
    const QStringView line = trimmedLine(text, withoutTabs);
    if (line.isEmpty())
        return;
    if (!m_InField)
        ReadOutsideBlock(line);
    else if (!ReadKey(line))
        ReadBlockLine(line);
}

void DefinitionReader::ReadOutsideBlock(QStringView line)
{
    const qsizetype blank = line.indexOf(u' ');
    if (is(blank < 0 ? line : line.left(blank), QLatin1String("ADDFIELD"))) {
        // "ADDFIELD" alone has no blank, so the name would be cut from position 0: an invalid
        // argument that ends the reading, as intended.
        if (blank < 0)
            raise(ErrInvalidCall);
        StartBlock(trimmedBlanks(line.mid(blank)));
    } else if (is(line.left(9), QLatin1String("ADD FIELD"))) {
        StartBlock(trimmedBlanks(line.mid(9)));
    } else if (is(keyOf(line), QLatin1String("FIELDNAMEWIDTH"))) {
        // Stored directly, without the work of the FieldNameWidth property, as intended.
        m_FieldNameWidth = toSingle(leadingNumber(trimmedBlanks(valueOf(line)).toString()));
    } else if (is(keyOf(line), QLatin1String("ROWHEIGHT"))) {
        m_RowHeight = toSingle(leadingNumber(trimmedBlanks(valueOf(line)).toString()));
    }
}

void DefinitionReader::StartBlock(QStringView fieldName)
{
    m_InField = true;
    m_FieldName = fieldName.toString();
    // The collected combo items are deliberately not reset: they carry into this block.
    m_Keys = BlockKeys();
}

bool DefinitionReader::ReadKey(QStringView line)
{
    struct Key
    {
        QLatin1String name;
        QString BlockKeys::*stored;
        bool upperCased;
    };
    static const Key keys[] = {
        { QLatin1String("MIN"), &BlockKeys::MIN, true },
        { QLatin1String("MAX"), &BlockKeys::MAX, true },
        { QLatin1String("ENABLED"), &BlockKeys::ENABLED, true },
        { QLatin1String("TITLE"), &BlockKeys::TITLE, true },
        { QLatin1String("INITDIR"), &BlockKeys::INITDIR, true },
        { QLatin1String("FILTER"), &BlockKeys::FILTER, true },
        { QLatin1String("DB"), &BlockKeys::DB, true },
        { QLatin1String("TABLE"), &BlockKeys::TABLE, true },
        { QLatin1String("LISTFIELD"), &BlockKeys::LISTFIELD, true },
        { QLatin1String("VALUEFIELD"), &BlockKeys::VALUEFIELD, true },
        // SORTED writes the value-field name; kept as it always was.
        { QLatin1String("SORTED"), &BlockKeys::VALUEFIELD, true },
        { QLatin1String("TYPE"), &BlockKeys::TYPE, true },
        { QLatin1String("VALUE"), &BlockKeys::VALUE, false },
        { QLatin1String("DESCRIPTION"), &BlockKeys::DESCRIPTION, false },
    };
    // The key is not trimmed, so "TYPE = TEXT" is no key; the value is the second piece only.
    const QStringView key = keyOf(line);
    for (const Key &known : keys) {
        if (!is(key, known.name))
            continue;
        const QString value = trimmedBlanks(valueOf(line)).toString();
        m_Keys.*known.stored = known.upperCased ? value.toUpper() : value;
        return true;
    }
    if (is(key, QLatin1String("SIMPLE")))
        return true; // accepted and without effect, as intended
    if (is(key, QLatin1String("SIZE"))) {
        m_Keys.SIZE = roundToInt32(leadingNumber(trimmedBlanks(valueOf(line)).toString()));
        return true;
    }
    return false;
}

void DefinitionReader::ReadBlockLine(QStringView line)
{
    if (is(line, QLatin1String("ADDCOMBOITEMS"))) {
        m_InItems = true;
        m_Items.clear();
        return;
    }
    if (is(line, QLatin1String("ENDCOMBOITEMS")) || is(line, QLatin1String("END COMBOITEMS"))) {
        m_InItems = false;
        return;
    }
    // An "ENDFIELD" inside the item list is also taken as an item before it ends the block, as
    // intended.
    if (m_InItems)
        TakeItem(line);
    if (is(line, QLatin1String("ENDFIELD")) || is(line, QLatin1String("END FIELD")))
        CompleteBlock();
}

void DefinitionReader::TakeItem(QStringView line)
{
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0)
        m_Items.append({ QString(), line.toString() });
    else
        m_Items.append(
            { line.left(equals).toString(), trimmedBlanks(line.mid(equals + 1)).toString() });
}

void DefinitionReader::CompleteBlock()
{
    // After either message the block stays open, so the following lines are read as further
    // keys of it, as intended.
    if (m_FieldName.isEmpty() || m_Keys.TYPE.isEmpty()) {
        ShowMessage(QStringLiteral("No FieldName or Type Defined!"));
        return;
    }
    const int type = fieldTypeNumber(m_Keys.TYPE);
    if (type == 0) {
        ShowMessage(QStringLiteral("FldType: ") + m_Keys.TYPE + QStringLiteral(" Not Valid ") + CRLF
                + CRLF + QStringLiteral("Must be ") + fieldTypeNames(),
            QStringLiteral("Invalid Field Type"));
        return;
    }

    Field *field = m_Fields.Add(
        m_FieldName, lFieldTypes(type), m_Keys.SIZE, m_Keys.VALUE, m_Keys.DESCRIPTION);
    m_LastAddedField = field;
    const QString &enabled = m_Keys.ENABLED;
    if (!enabled.isEmpty() && enabled != QLatin1String("TRUE") && enabled != QLatin1String("1"))
        require(field)->setEnabled(false);
    ApplyTypeKeys(field, type);
    m_InField = false;
}

void DefinitionReader::ApplyTypeKeys(Field *field, qint32 type)
{
    switch (type) {
    case ftSlider:
        // Always set, so that a missing MIN or MAX gives 0.
        require(field)->setMin(doubleValue(leadingNumber(m_Keys.MIN)));
        field->setMax(doubleValue(leadingNumber(m_Keys.MAX)));
        break;
    case ftDate:
        if (isDate(textValue(m_Keys.MIN)))
            require(field)->setMin(toDate(textValue(m_Keys.MIN)));
        if (isDate(textValue(m_Keys.MAX)))
            require(field)->setMax(toDate(textValue(m_Keys.MAX)));
        break;
    case ftFileSelector:
        if (!m_Keys.TITLE.isEmpty())
            require(field)->setTitle(m_Keys.TITLE);
        if (!m_Keys.INITDIR.isEmpty())
            require(field)->setInitDir(InitialFolder(m_Keys.INITDIR));
        if (!m_Keys.FILTER.isEmpty())
            require(field)->setFilter(m_Keys.FILTER);
        break;
    case ftCombo:
        if (!m_Items.isEmpty()) {
            FillComboFromItems(field);
            require(field)->setValue(textValue(m_Keys.VALUE));
        } else if (!m_Keys.DB.isEmpty()) {
            if (FillComboFromDatabase(field))
                require(field)->setValue(textValue(m_Keys.VALUE));
        }
        m_Items.clear();
        break;
    default:
        // Items collected in a block of another type carry into the next combo, as intended.
        break;
    }
}

void DefinitionReader::FillComboFromItems(Field *field)
{
    for (const ComboItem &item : std::as_const(m_Items)) {
        if (!item.Key.isEmpty()) {
            require(require(field)->DropDownValues())->Add(item.Key, item.Text);
        } else {
            FieldPrivate::get(require(field))->setUseItemData(false);
            AddAutomaticKeyItem(field, item.Text);
        }
    }
}

// Numbers the item from the counter that runs through the whole ReadDef call.
void DefinitionReader::AddAutomaticKeyItem(Field *field, const QString &text)
{
    Increment(m_AutoKey);
    require(require(field)->DropDownValues())->Add(QString::number(m_AutoKey), text);
}

// False when the block had to be closed after a message; the field then stays without items.
bool DefinitionReader::FillComboFromDatabase(Field *field)
{
    const QString file = DatabaseFile(m_Keys.DB);
    if (file.isEmpty()) {
        ShowMessage(QStringLiteral("Field:") + m_FieldName + CRLF
            + QStringLiteral("Can't find Combo Database File:") + CRLF + QStringLiteral("File=")
            + m_Keys.DB);
        return false;
    }
    if (m_Keys.TABLE.isEmpty()) {
        ShowMessage(QStringLiteral("Combo Table not defined for:") + m_FieldName);
        return false;
    }
    if (m_Keys.LISTFIELD.isEmpty()) {
        ShowMessage(QStringLiteral("ListField not defined for:") + m_FieldName);
        return false;
    }

    const std::unique_ptr<Database> db = OpenDatabase(file);
    const std::unique_ptr<Recordset> records = require(db.get())->OpenRecordset(m_Keys.TABLE);
    require(records.get());
    if (records->RecordCount() > 0) {
        records->MoveLast();
        records->MoveFirst();
        while (!records->IsEOF()) {
            // A NULL in the table reads as the empty text.
            const QString text = textOf(records->Value(m_Keys.LISTFIELD));
            if (!m_Keys.VALUEFIELD.isEmpty())
                require(require(field)->DropDownValues())
                    ->Add(textOf(records->Value(m_Keys.VALUEFIELD)), text);
            else
                AddAutomaticKeyItem(field, text);
            records->MoveNext();
        }
    }
    return true;
}

} // namespace

void kwPropertyControlPrivate::ReadDef(const QString &DefString)
{
    trap("Sub 'ReadDef' of User Control 'kwPropertyControl'", [&] {
        DefinitionReader reader(
            *require(Fields()), m_FieldNameWidth, m_RowHeight, m_LastAddedField);
        for (QStringView line : QStringTokenizer(DefString, CRLF))
            reader.ReadLine(line);
    });
}

Field *kwPropertyControlPrivate::AddFieldByDefString(const QString &DefString)
{
    return trap("Function 'AddFieldByDefString' of User Control 'kwPropertyControl'", [&] {
        m_LastAddedField = nullptr;
        QString definition = DefString;
        CleanDefString(definition);
        ReadDef(definition);
        return m_LastAddedField;
    });
}

void kwPropertyControlPrivate::CleanDefString(QString &DefString)
{
    trap("Sub 'CleanDefString' of User Control 'kwPropertyControl'",
        [&] { DefString = CleanDefinitionText(DefString); });
}

void kwPropertyControlPrivate::LoadDefFile(const QString &FileName)
{
    trap("Sub 'LoadDefFile' of User Control 'kwPropertyControl'", [&] {
        const QString cannotOpen
            = QStringLiteral("Can't Open kwProperty Control Definition file.") + CRLF + CRLF;
        // A missing file is reported here and then once more by the error trap below, as
        // intended.
        if (!FileExists(FileName))
            ShowMessage(cannotOpen + FileName);

        const QString text = ReadWholeFile(FileName);
        if (text.isEmpty())
            kwFieldDeck::raise(ErrSubscriptOutOfRange);
        const qsizetype firstBreak = text.indexOf(CRLF);
        const QString header = firstBreak < 0 ? text : text.left(firstBreak);
        if (header.toUpper() != DefinitionFileHeader) {
            ShowMessage(cannotOpen + QStringLiteral("File Format Does not Match!") + CRLF + CRLF
                + FileName);
            return;
        }

        const DefinitionFolderScope folder(
            QFileInfo(FileSystem::resolvePath(FileName)).absolutePath());
        ReadDef(firstBreak < 0 ? QString() : text.mid(firstBreak + 2));
    });
}

} // namespace kwFieldDeck
