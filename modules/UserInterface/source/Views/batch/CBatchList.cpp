#include "CBatchList.h"

#include "CBatchEditor.h"
#include "CPictureBox.h"

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
    const QVariant font = m_box->itemData(index);
    editor()->set(key(), font.isValid() ? font : m_box->itemText(index));
}

void CBatchList::fill(const QStringList &entries)
{
    QStringList there;
    for (int index = 0; index < m_box->count(); ++index)
        there.append(m_box->itemText(index));
    if (there == entries)
        return;
    m_box->clear();
    m_box->addItems(entries);
    for (int index = 0; m_look == EEditor::Symbol && index < entries.size(); ++index)
        m_box->setSample(index, {entries.at(index), CSampleSheet::SSample::None, SymbolSize});
}

void CBatchList::fillWithFonts()
{
    const QVector<FontEntries::SEntry> fonts = FontEntries::of(*editor()->project());
    QStringList texts;
    for (const FontEntries::SEntry &each : fonts)
        texts.append(each.text);
    fill(texts);
    for (int index = 0; index < fonts.size(); ++index) {
        m_box->setItemData(index, fonts.at(index).handle);
        m_box->setSample(index, fonts.at(index).sample);
    }
}

/// A value that is no entry that all have is told, but not offered.
void CBatchList::show(const CBatchItems::SProperty &property)
{
    const QString value = property.property.text();
    int shown = -1;
    if (m_look == EEditor::Font) {
        fillWithFonts();
        shown = m_box->findData(value.toInt());
    } else {
        fill(property.property.enumerationEntries());
        shown = m_box->findText(value, Qt::MatchExactly | Qt::MatchCaseSensitive);
    }
    m_box->setPlaceholderText(property.isMixed ? mixedText() : value);
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
