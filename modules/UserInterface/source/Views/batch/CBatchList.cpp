#include "CBatchList.h"

#include "CBatchEditor.h"
#include "CPictureBox.h"
#include "PropertyWords.h"

#include <QEvent>

namespace {
using EEditor = SPropertyLook::EEditor;
constexpr QSize SymbolSize(24, 24); // pixels of the chip
} // namespace

CBatchList::CBatchList(CBatchEditor *editor, const QString &key, EEditor look, QWidget *parent)
    : CBatchField(editor, key, parent),
      m_look(look),
      m_box(new CPictureBox(editor->project(), this))
{
    m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_box->setMinimumContentsLength(1);
    m_box->installEventFilter(this);
    setContent(m_box);
    connect(m_box, QOverload<int>::of(&QComboBox::activated), this, &CBatchList::choose);
}

void CBatchList::choose(int index)
{
    editor()->set(key(), m_box->itemData(index));
}

void CBatchList::fill(const QVector<SEntry> &entries)
{
    const auto isShown = [this](int index, const SEntry &entry) {
        return m_box->itemData(index) == entry.value && m_box->itemText(index) == entry.text;
    };
    bool areThere = m_box->count() == entries.size();
    for (int index = 0; areThere && index < entries.size(); ++index)
        areThere = isShown(index, entries.at(index));
    if (areThere)
        return;
    m_box->clear();
    for (const SEntry &each : entries) {
        m_box->addItem(each.text, each.value);
        if (each.sample.size.isValid())
            m_box->setSample(m_box->count() - 1, each.sample);
        if (m_look != EEditor::Font)
            m_box->setItemData(m_box->count() - 1, each.value, Qt::ToolTipRole);
    }
}

/// A value that is no entry that all have is told, but not offered.
void CBatchList::show(const CBatchItems::SProperty &property)
{
    const QString value = property.property.text();
    QVector<SEntry> entries;
    if (m_look == EEditor::Font) {
        for (const FontEntries::SEntry &each : FontEntries::of(*editor()->project()))
            entries.append({each.text, each.handle, each.sample});
    } else {
        for (const QString &each : property.property.enumerationEntries())
            entries.append(
                {PropertyWords::entry(each), each,
                 m_look == EEditor::Symbol
                     ? CSampleSheet::SSample{each, CSampleSheet::SSample::None, SymbolSize}
                     : CSampleSheet::SSample()});
    }
    fill(entries);
    const int shown =
        m_box->findData(m_look == EEditor::Font ? QVariant(value.toInt()) : QVariant(value));
    m_box->setPlaceholderText(property.isMixed          ? mixedText()
                              : m_look == EEditor::Font ? value
                                                        : PropertyWords::entry(value));
    m_box->setCurrentIndex(property.isMixed ? -1 : shown);
}

/// The wheel scrolls the fields and changes none by the way.
bool CBatchList::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel)
        return CBatchField::eventFilter(watched, event);
    event->ignore();
    return true;
}
