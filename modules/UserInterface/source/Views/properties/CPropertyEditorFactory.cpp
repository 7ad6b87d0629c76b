#include "CPropertyEditorFactory.h"

#include "CIntegerSpinBox.h"
#include "CNumberEntry.h"
#include "CNumberSpinBox.h"
#include "CPendingEdit.h"
#include "CPictureBox.h"
#include "CPropertyManager.h"
#include "CTextBox.h"
#include "CThemeIcons.h"
#include "CTimeEdit.h"
#include "PropertyWords.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QtVariantPropertyManager>

#include <algorithm>
#include <cmath>

namespace {

QVariant attribute(QtVariantPropertyManager *manager, QtProperty *property, const char *name)
{
    return manager->attributeValue(property, QLatin1String(name));
}

SPropertyLook::EEditor editorOf(QtVariantPropertyManager *manager, QtProperty *property)
{
    const auto *rows = qobject_cast<CPropertyManager *>(manager);
    return rows ? rows->editorOf(property) : SPropertyLook::EEditor::Plain;
}

/// Limits and step of a row for its spin box.
template<typename Box, typename Number>
void setRange(Box *box, QtVariantPropertyManager *manager, QtProperty *property)
{
    box->setRange(attribute(manager, property, "minimum").value<Number>(),
                  attribute(manager, property, "maximum").value<Number>());
    box->setSingleStep(attribute(manager, property, "singleStep").value<Number>());
    box->setReadOnly(attribute(manager, property, "readOnly").toBool());
}

} // namespace

CPropertyEditorFactory::CPropertyEditorFactory(QObject *parent) : QtVariantEditorFactory(parent)
{
}

void CPropertyEditorFactory::connectPropertyManager(QtVariantPropertyManager *manager)
{
    QtVariantEditorFactory::connectPropertyManager(manager);
    connect(manager, &QtVariantPropertyManager::valueChanged, this,
            &CPropertyEditorFactory::refresh);
    connect(manager, &QtVariantPropertyManager::attributeChanged, this,
            &CPropertyEditorFactory::refresh);
    connect(manager, &QtAbstractPropertyManager::propertyDestroyed, this,
            &CPropertyEditorFactory::forget);
}

void CPropertyEditorFactory::disconnectPropertyManager(QtVariantPropertyManager *manager)
{
    disconnect(manager, nullptr, this, nullptr);
    QtVariantEditorFactory::disconnectPropertyManager(manager);
}

void CPropertyEditorFactory::commitPending()
{
    const QHash<QtProperty *, SEditor> editors = m_editors; // a commit may change them
    for (const SEditor &editor : editors) {
        if (auto *box = qobject_cast<QAbstractSpinBox *>(editor.widget))
            box->interpretText(); // what is being typed becomes its value only when it is left
        if (editor.pending)
            editor.pending->commit();
    }
}

void CPropertyEditorFactory::discardPending()
{
    for (const SEditor &editor : qAsConst(m_editors)) {
        if (editor.pending)
            editor.pending->discard();
    }
}

void CPropertyEditorFactory::setFileRow(QtProperty *property)
{
    m_fileRow = property;
}

void CPropertyEditorFactory::setMultiLine(QtProperty *property)
{
    m_multiLineRows.insert(property);
}

void CPropertyEditorFactory::use(QtProperty *property)
{
    QWidget *editor = m_editors.value(property).widget;
    if (auto *box = qobject_cast<QCheckBox *>(editor))
        box->click();
    else if (auto *list = qobject_cast<QComboBox *>(editor))
        list->showPopup();
}

void CPropertyEditorFactory::refresh(QtProperty *property)
{
    const auto editor = m_editors.constFind(property);
    if (editor == m_editors.constEnd() || !editor->widget)
        return;
    const QSignalBlocker noEdit(editor->widget.data());
    editor->pending->discard();
    editor->showValue();
}

/// The row goes before its editor does: what the editor still says has no meaning.
void CPropertyEditorFactory::forget(QtProperty *property)
{
    const SEditor editor = m_editors.take(property);
    delete editor.pending;
    m_multiLineRows.remove(property);
    if (m_fileRow == property)
        m_fileRow = nullptr;
}

CPendingEdit *CPropertyEditorFactory::follow(QtVariantPropertyManager *manager,
                                             QtProperty *property, QWidget *widget,
                                             const std::function<QVariant()> &value,
                                             const std::function<void()> &showValue)
{
    const auto show = [widget, showValue] {
        const QSignalBlocker noEdit(widget);
        showValue();
    };
    show();
    auto *pending = new CPendingEdit(
        widget, [manager, property, value] { manager->setValue(property, value()); }, show);
    m_editors.insert(property, {widget, pending, showValue});
    connect(pending, &CPendingEdit::stepping, this, &CPropertyEditorFactory::stepping);
    connect(pending, &CPendingEdit::stepped, this, &CPropertyEditorFactory::stepped);
    connect(pending, &CPendingEdit::takenBack, this, &CPropertyEditorFactory::stepsTakenBack);
    connect(pending, &CPendingEdit::left, this, &CPropertyEditorFactory::nextWanted);
    return pending;
}

QWidget *CPropertyEditorFactory::createEditor(QtVariantPropertyManager *manager,
                                              QtProperty *property, QWidget *parent)
{
    switch (manager->propertyType(property)) {
    case QVariant::Int:
        return makeWholeNumberEditor(manager, property, parent);
    case QVariant::Double:
        return makeNumberBox(manager, property, parent);
    case QVariant::String:
        return m_multiLineRows.contains(property) ? makeTextBox(manager, property, parent)
                                                  : makeLineEdit(manager, property, parent);
    case QVariant::Bool:
        return makeCheckBox(manager, property, parent);
    case QVariant::Color:
        return makeColourEdit(manager, property, parent);
    case QVariant::Time:
        return makeTimeEdit(manager, property, parent);
    default:
        break;
    }
    if (manager->propertyType(property) == QtVariantPropertyManager::enumTypeId())
        return makeComboBox(manager, property, parent);
    return QtVariantEditorFactory::createEditor(manager, property, parent);
}

QWidget *CPropertyEditorFactory::makeWholeNumberEditor(QtVariantPropertyManager *manager,
                                                       QtProperty *property, QWidget *parent)
{
    const bool isReadOnly = attribute(manager, property, "readOnly").toBool();
    switch (editorOf(manager, property)) {
    case SPropertyLook::EEditor::Sixteenths:
        return makePixelBox(manager, property, parent);
    case SPropertyLook::EEditor::Font:
        if (m_project && !isReadOnly)
            return makeFontBox(manager, property, parent);
        break;
    default:
        break;
    }
    return makeSpinBox(manager, property, parent);
}

QWidget *CPropertyEditorFactory::makeSpinBox(QtVariantPropertyManager *manager,
                                             QtProperty *property, QWidget *parent)
{
    auto *box = new CIntegerSpinBox(parent);
    box->entry()->setNames(m_names);
    box->setKeyboardTracking(false);
    CPendingEdit *pending = follow(
        manager, property, box, [box] { return box->value(); },
        [manager, property, box] {
            setRange<QSpinBox, int>(box, manager, property);
            box->setValue(manager->value(property).toInt());
        });
    connect(box, QOverload<int>::of(&QSpinBox::valueChanged), pending, &CPendingEdit::touch);
    connect(box, &QSpinBox::editingFinished, pending, &CPendingEdit::commit);
    return box;
}

QWidget *CPropertyEditorFactory::makeNumberBox(QtVariantPropertyManager *manager,
                                               QtProperty *property, QWidget *parent)
{
    auto *box = new CNumberSpinBox(parent);
    box->entry()->setNames(m_names);
    box->setKeyboardTracking(false);
    CPendingEdit *pending = follow(
        manager, property, box, [box] { return box->value(); },
        [manager, property, box] {
            box->setDecimals(attribute(manager, property, "decimals").toInt());
            setRange<QDoubleSpinBox, double>(box, manager, property);
            box->setValue(manager->value(property).toDouble());
        });
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), pending,
            &CPendingEdit::touch);
    connect(box, &QDoubleSpinBox::editingFinished, pending, &CPendingEdit::commit);
    return box;
}

/// Pixels, to a sixteenth; the row counts sixteenths.
QWidget *CPropertyEditorFactory::makePixelBox(QtVariantPropertyManager *manager,
                                              QtProperty *property, QWidget *parent)
{
    auto *box = new CNumberSpinBox(parent);
    box->entry()->setNames(m_names);
    box->setKeyboardTracking(false);
    constexpr double unit = CPropertyManager::Sixteenths;
    CPendingEdit *pending = follow(
        manager, property, box,
        [box] { return static_cast<int>(std::lround(box->value() * unit)); },
        [manager, property, box] {
            box->setDecimals(CPropertyManager::Decimals);
            setRange<QDoubleSpinBox, double>(box, manager, property);
            box->setRange(box->minimum() / unit, box->maximum() / unit);
            box->setSingleStep(std::max(box->singleStep(), 1.0) / unit);
            box->setValue(manager->value(property).toInt() / unit);
        });
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), pending,
            &CPendingEdit::touch);
    connect(box, &QDoubleSpinBox::editingFinished, pending, [this, property, pending] {
        pending->commit();
        refresh(property); // to the sixteenth that it has become
    });
    return box;
}

/// The fonts that there are; a handle that none has is an entry too, as long as it is the value.
QWidget *CPropertyEditorFactory::makeFontBox(QtVariantPropertyManager *manager,
                                             QtProperty *property, QWidget *parent)
{
    auto *box = new CPictureBox(m_project, parent);
    const QVector<FontEntries::SEntry> entries = FontEntries::of(*m_project);
    for (const FontEntries::SEntry &each : entries) {
        box->addItem(each.text, each.handle);
        box->setSample(box->count() - 1, each.sample);
    }
    CPendingEdit *pending = follow(
        manager, property, box, [box] { return box->currentData(); },
        [manager, property, box] {
            const int font = manager->value(property).toInt();
            if (box->findData(font) < 0)
                box->addItem(QString::number(font), font);
            box->setCurrentIndex(box->findData(font));
        });
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), pending,
            &CPendingEdit::touch);
    return box;
}

QWidget *CPropertyEditorFactory::makeLineEdit(QtVariantPropertyManager *manager,
                                              QtProperty *property, QWidget *parent)
{
    auto *line = new QLineEdit(parent);
    line->setReadOnly(attribute(manager, property, "readOnly").toBool());
    CPendingEdit *pending = follow(
        manager, property, line, [line] { return line->text(); },
        [manager, property, line] {
            if (line->text() != manager->value(property).toString())
                line->setText(manager->value(property).toString());
        });
    connect(line, &QLineEdit::editingFinished, pending, [line, pending] {
        if (line->isModified())
            pending->touch();
        pending->commit();
    });
    if (property == m_fileRow) {
        QAction *choose =
            line->addAction(CThemeIcons::icon(QStringLiteral(":/images/openProject.png")),
                            QLineEdit::TrailingPosition);
        choose->setObjectName(QStringLiteral("chooseFile"));
        choose->setToolTip(tr("Choose a file"));
        connect(choose, &QAction::triggered, pending,
                [this, property] { Q_EMIT fileWanted(property); });
    }
    return line;
}

QWidget *CPropertyEditorFactory::makeTextBox(QtVariantPropertyManager *manager,
                                             QtProperty *property, QWidget *parent)
{
    auto *box = new CTextBox(parent);
    box->setReadOnly(attribute(manager, property, "readOnly").toBool());
    CPendingEdit *pending = follow(
        manager, property, box, [box] { return box->toPlainText(); },
        [manager, property, box] {
            if (box->toPlainText() != manager->value(property).toString())
                box->setPlainText(manager->value(property).toString());
        });
    connect(box, &QPlainTextEdit::textChanged, pending, &CPendingEdit::change);
    connect(box, &CTextBox::confirmed, pending, &CPendingEdit::commit);
    return box;
}

/// A switch is turned over at once.
QWidget *CPropertyEditorFactory::makeCheckBox(QtVariantPropertyManager *manager,
                                              QtProperty *property, QWidget *parent)
{
    auto *box = new QCheckBox(parent);
    CPendingEdit *pending = follow(
        manager, property, box, [box] { return box->isChecked(); },
        [manager, property, box] {
            box->setChecked(manager->value(property).toBool());
            box->setText(property->valueText());
        });
    connect(box, &QCheckBox::toggled, pending, [pending] {
        pending->touch();
        pending->commit();
    });
    return box;
}

QWidget *CPropertyEditorFactory::makeTimeEdit(QtVariantPropertyManager *manager,
                                              QtProperty *property, QWidget *parent)
{
    auto *edit = new CTimeEdit(parent);
    edit->setKeyboardTracking(false);
    CPendingEdit *pending = follow(
        manager, property, edit, [edit] { return edit->time(); },
        [manager, property, edit] { edit->setTime(manager->value(property).toTime()); });
    connect(edit, &QTimeEdit::timeChanged, pending, &CPendingEdit::touch);
    connect(edit, &QTimeEdit::editingFinished, pending, &CPendingEdit::commit);
    return edit;
}

QWidget *CPropertyEditorFactory::makeComboBox(QtVariantPropertyManager *manager,
                                              QtProperty *property, QWidget *parent)
{
    const bool hasSymbols = editorOf(manager, property) == SPropertyLook::EEditor::Symbol;
    auto *symbols = hasSymbols && m_project ? new CPictureBox(m_project, parent) : nullptr;
    QComboBox *box = symbols ? symbols : new QComboBox(parent);
    CPendingEdit *pending = follow(
        manager, property, box, [box] { return box->currentIndex(); },
        [manager, property, box] {
            const QStringList entries = attribute(manager, property, "enumNames").toStringList();
            if (box->count() != entries.size())
                box->clear();
            for (int entry = box->count(); entry < entries.size(); ++entry) {
                box->addItem(PropertyWords::entry(entries.at(entry)), entries.at(entry));
                box->setItemData(entry, entries.at(entry), Qt::ToolTipRole);
            }
            box->setCurrentIndex(manager->value(property).toInt());
        });
    constexpr QSize symbolSize(24, 24);
    for (int entry = 0; symbols && entry < symbols->count(); ++entry)
        symbols->setSample(
            entry, {symbols->itemData(entry).toString(), CSampleSheet::SSample::None, symbolSize});
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), pending,
            &CPendingEdit::touch);
    return box;
}
