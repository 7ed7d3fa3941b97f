// Row creation: the name cell of a new row and the editor for each field type, created through
// the class factory, named from one creation counter and placed on the canvas picInner.

#include "grid/kwPropertyControl_p.h"

#include "editors/kwComboField.h"
#include "editors/kwFileSelectorField.h"
#include "editors/kwFolderSelectorField.h"
#include "editors/kwMemoField.h"
#include "editors/kwSimpleCheck.h"
#include "editors/kwSliderValue.h"
#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "platform/ClassFactory.h"
#include "platform/DatePicker.h"
#include "platform/Error.h"
#include "platform/PictureBox.h"
#include "platform/TextBox.h"
#include "platform/VScrollBar.h"
#include "platform/Values.h"

namespace kwFieldDeck {

namespace {
// One counter for all grids of a thread, so that no two rows ever share a control name.
thread_local qint32 controlCounter = 0;

// Adjacent rows share one 15-twip border line; editors overlap the name column by 25.
constexpr float SharedBorder = 15;
constexpr float EditorOverlap = 25;

QString counterText()
{
    return QString::number(controlCounter);
}
} // namespace

TextBox *kwPropertyControlPrivate::AddField()
{
    return trap("Function 'AddField' of User Control 'kwPropertyControl'", [&]() -> TextBox * {
        ++controlCounter;
        auto *label = static_cast<TextBox *>(Controls().Add(
            TextBox::ClassId, QStringLiteral("FieldName") + counterText(), picInner->widget()));
        label->setForeColor(m_FieldNameForeColor);
        label->setBackColor(m_FieldNameBackColor);
        label->setTop(TopOfNewRow());
        label->setAppearance(0);
        label->setLocked(true);
        label->setHeight(m_RowHeight);
        label->setWidth(m_FieldNameWidth);
        label->setTabStop(false);
        label->setInView(IsNearView(label));
        picInner->setHeight(label->Top() + label->Height());
        // The new row enters the scroll range only at the next full layout: intended.
        CalcSlider();
        return label;
    });
}

float kwPropertyControlPrivate::TopOfNewRow()
{
    // Hidden fields count too; the new field has no name cell yet and so is not the last one.
    Field *last = FieldsPrivate::get(m_Fields)->LastLabelledField();
    if (!last)
        return 0;
    const TextBox *label = FieldPrivate::get(last)->FieldNameControl();
    return label->Top() + label->Height() - SharedBorder;
}

TextBox *kwPropertyControlPrivate::AddTextBox(Field *oField)
{
    return trap("Function 'AddTextBox' of User Control 'kwPropertyControl'",
        [&] { return addTextEditor(QStringLiteral("TextBox"), oField); });
}

TextBox *kwPropertyControlPrivate::AddNumeric(Field *oField)
{
    return trap("Function 'AddNumeric' of User Control 'kwPropertyControl'",
        [&] { return addTextEditor(QStringLiteral("Numeric"), oField); });
}

TextBox *kwPropertyControlPrivate::addTextEditor(const QString &kind, Field *oField)
{
    const TextBox *label = require(FieldPrivate::get(require(oField))->FieldNameControl());
    auto *editor = static_cast<TextBox *>(
        Controls().Add(TextBox::ClassId, kind + counterText(), picInner->widget()));
    editor->setTop(label->Top());
    editor->setLeft(label->Left() + label->Width() - EditorOverlap);
    editor->setAppearance(0);
    editor->setHeight(m_RowHeight);
    editor->setWidth(EditorWidth(40));
    EnterRow(oField, editor);
    editor->setVisible(true);
    editor->setText(textOf(oField->Value()));
    return editor;
}

DatePicker *kwPropertyControlPrivate::AddDatePicker(Field *oField)
{
    return trap(
        "Function 'AddDatePicker' of User Control 'kwPropertyControl'", [&]() -> DatePicker * {
            const TextBox *label = require(FieldPrivate::get(require(oField))->FieldNameControl());
            auto *picker = static_cast<DatePicker *>(Controls().Add(DatePicker::ClassId,
                QStringLiteral("DTPicker") + counterText(), picInner->widget()));
            picker->setTop(label->Top());
            picker->setLeft(label->Left() + label->Width() - EditorOverlap);
            picker->setHeight(m_RowHeight);
            // 30 where every other editor uses 40: intended.
            picker->setWidth(EditorWidth(30));
            EnterRow(oField, picker);
            picker->setVisible(true);
            const QVariant value = oField->Value();
            if (isDate(value))
                picker->setValue(toDate(value));
            return picker;
        });
}

Control *kwPropertyControlPrivate::addLibraryEditor(const QString &className, Field *oField)
{
    const TextBox *label = require(FieldPrivate::get(require(oField))->FieldNameControl());
    Control *editor = Controls().Add(libraryTitle() + QLatin1Char('.') + className,
        className + counterText(), picInner->widget());
    editor->setTop(label->Top());
    editor->setLeft(label->Left() + label->Width() - EditorOverlap);
    editor->setHeight(m_RowHeight);
    editor->setWidth(EditorWidth(40));
    EnterRow(oField, editor);
    editor->setVisible(true);
    return editor;
}

namespace {
template <typename Editor>
Editor *editorIn(Control *extender)
{
    return qobject_cast<Editor *>(WindowlessUserControl::of(require(extender)));
}
} // namespace

kwSimpleCheck *kwPropertyControlPrivate::AddCheckBox(Field *oField)
{
    return trap("Function 'AddCheckBox' of User Control 'kwPropertyControl'", [&] {
        auto *check = editorIn<kwSimpleCheck>(addLibraryEditor("kwSimpleCheck", oField));
        check->setValue(toBool(oField->Value()) ? 1 : 0);
        return check;
    });
}

kwComboField *kwPropertyControlPrivate::AddComboBox(Field *oField)
{
    return trap("Function 'AddComboBox' of User Control 'kwPropertyControl'", [&] {
        auto *combo = editorIn<kwComboField>(addLibraryEditor("kwComboField", oField));
        combo->setValue(textOf(oField->Value()));
        return combo;
    });
}

kwSliderValue *kwPropertyControlPrivate::AddSliderValue(Field *oField)
{
    return trap("Function 'AddSliderValue' of User Control 'kwPropertyControl'", [&] {
        auto *slider = editorIn<kwSliderValue>(addLibraryEditor("kwSliderValue", oField));
        slider->setValue(toInt32(oField->Value()));
        return slider;
    });
}

kwFileSelectorField *kwPropertyControlPrivate::AddFileSelectorField(Field *oField)
{
    return trap("Function 'AddFileSelectorField' of User Control 'kwPropertyControl'", [&] {
        auto *selector
            = editorIn<kwFileSelectorField>(addLibraryEditor("kwFileSelectorField", oField));
        selector->setValue(textOf(oField->Value()));
        return selector;
    });
}

kwFolderSelectorField *kwPropertyControlPrivate::AddFolderSelectorField(Field *oField)
{
    return trap("Function 'AddFolderSelectorField' of User Control 'kwPropertyControl'", [&] {
        auto *selector
            = editorIn<kwFolderSelectorField>(addLibraryEditor("kwFolderSelectorField", oField));
        selector->setValue(textOf(oField->Value()));
        return selector;
    });
}

kwMemoField *kwPropertyControlPrivate::AddMemoField(Field *oField)
{
    return trap("Function 'AddMemoField' of User Control 'kwPropertyControl'", [&] {
        auto *memo = editorIn<kwMemoField>(addLibraryEditor("kwMemoField", oField));
        memo->setValue(textOf(oField->Value()));
        return memo;
    });
}

} // namespace kwFieldDeck
