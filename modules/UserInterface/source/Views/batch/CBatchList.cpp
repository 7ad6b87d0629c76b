#include "CBatchList.h"

#include "CBatchEditor.h"

#include <QComboBox>
#include <QEvent>

CBatchList::CBatchList(CBatchEditor *editor, const QString &key, QWidget *parent)
    : CBatchField(editor, key, parent), m_box(new QComboBox(this))
{
    m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_box->setMinimumContentsLength(1);
    m_box->installEventFilter(this);
    setContent(m_box);
    connect(m_box, QOverload<int>::of(&QComboBox::activated), this,
            [this](int index) { this->editor()->set(this->key(), m_box->itemText(index)); });
}

/// A value that is no entry that all have is told, but not offered.
void CBatchList::show(const CBatchItems::SProperty &property)
{
    const QStringList entries = property.property.enumerationEntries();
    if (m_box->count() != entries.size() || m_box->itemText(0) != entries.value(0)) {
        m_box->clear();
        m_box->addItems(entries);
    }
    const QString value = property.isMixed ? QString() : property.property.text();
    m_box->setPlaceholderText(property.isMixed ? mixedText() : value);
    m_box->setCurrentIndex(property.isMixed ? -1 : entries.indexOf(value));
}

/// The wheel scrolls the fields and changes none by the way.
bool CBatchList::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel)
        return CBatchField::eventFilter(watched, event);
    event->ignore();
    return true;
}
