#include "CPropertyLayout.h"

#include "PropertyKey.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QTreeWidget>

#include <algorithm>

namespace {

struct SPairRule
{
    QString first;
    QString second;
    const char *caption;
    const char *letters[2];
};

const SPairRule *ruleOf(const QString &first)
{
    static const SPairRule rules[] = {
        {PropertyKey::X,
         PropertyKey::Y,
         QT_TRANSLATE_NOOP("CPropertyLayout", "Position"),
         {QT_TRANSLATE_NOOP("CPropertyLayout", "X"), QT_TRANSLATE_NOOP("CPropertyLayout", "Y")}},
        {PropertyKey::X2, PropertyKey::Y2, QT_TRANSLATE_NOOP("CPropertyLayout", "End"), {"X", "Y"}},
        {PropertyKey::Width,
         PropertyKey::Height,
         QT_TRANSLATE_NOOP("CPropertyLayout", "Size"),
         {QT_TRANSLATE_NOOP("CPropertyLayout", "W"), QT_TRANSLATE_NOOP("CPropertyLayout", "H")}}};
    for (const SPairRule &each : rules) {
        if (each.first == first)
            return &each;
    }
    return nullptr;
}

} // namespace

CPropertyLayout::CPropertyLayout(QTreeWidget *tree) : QObject(tree), m_tree(tree)
{
    m_tree->installEventFilter(this);
    connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *item) {
        if (isHeading(item))
            setOpen(item, !isOpen(item));
    });
}

void CPropertyLayout::clear()
{
    m_pairs.clear();
    m_captions.clear();
    const QList<const QTreeWidgetItem *> headings = m_headings.keys();
    m_headings.clear();
    qDeleteAll(headings);
}

void CPropertyLayout::arrange(const QVector<SRow> &rows)
{
    if (m_tree->topLevelItemCount() != rows.size())
        return;
    for (int row = 0; row < rows.size(); ++row) {
        m_captions.insert(m_tree->topLevelItem(row), rows.at(row).caption);
        makePair(row, rows);
    }
    QVector<QTreeWidgetItem *> items;
    for (int row = 0; row < rows.size(); ++row)
        items.append(m_tree->topLevelItem(row));
    QString section;
    for (int row = 0; row < rows.size(); ++row) {
        if (rows.at(row).section == section)
            continue;
        section = rows.at(row).section;
        auto *heading = new QTreeWidgetItem;
        heading->setFlags(Qt::ItemIsEnabled);
        m_headings.insert(heading, section); // before the view asks
        heading->setText(
            0, QCoreApplication::translate("WidgetLibrary", section.toUtf8().constData()));
        m_tree->insertTopLevelItem(m_tree->indexOfTopLevelItem(items.at(row)), heading);
        heading->setFirstColumnSpanned(true);
    }
    for (auto each = m_headings.constBegin(); each != m_headings.constEnd(); ++each)
        showSection(each.key());
}

void CPropertyLayout::makePair(int first, const QVector<SRow> &rows)
{
    const SPairRule *rule = ruleOf(rows.at(first).key);
    const int second = first + 1;
    if (!rule || second >= rows.size() || rows.at(second).key != rule->second ||
        rows.at(second).section != rows.at(first).section)
        return;
    QTreeWidgetItem *item = m_tree->topLevelItem(first);
    QTreeWidgetItem *other = m_tree->topLevelItem(second);
    m_pairs.insert(item,
                   {other, rows.at(second).property, {tr(rule->letters[0]), tr(rule->letters[1])}});
    m_captions.insert(item, tr(rule->caption));
    other->setHidden(true);
}

bool CPropertyLayout::isOpen(const QTreeWidgetItem *heading) const
{
    return !m_closed.contains(m_headings.value(heading));
}

void CPropertyLayout::setOpen(QTreeWidgetItem *heading, bool open)
{
    if (!isHeading(heading) || open == isOpen(heading))
        return;
    const QString section = m_headings.value(heading);
    if (open)
        m_closed.remove(section);
    else
        m_closed.insert(section);
    for (auto each = m_headings.constBegin(); each != m_headings.constEnd(); ++each)
        showSection(each.key());
}

QStringList CPropertyLayout::closedSections() const
{
    QStringList names = m_closed.values();
    names.sort(); // the settings stay as they are
    return names;
}

void CPropertyLayout::setClosedSections(const QStringList &names)
{
    m_closed = QSet<QString>(names.begin(), names.end());
    for (auto each = m_headings.constBegin(); each != m_headings.constEnd(); ++each)
        showSection(each.key());
}

/// The rows from a heading to the next one.
void CPropertyLayout::showSection(const QTreeWidgetItem *heading)
{
    const bool open = isOpen(heading);
    QSet<const QTreeWidgetItem *> seconds;
    for (const SPair &each : qAsConst(m_pairs))
        seconds.insert(each.second);
    int row = m_tree->indexOfTopLevelItem(const_cast<QTreeWidgetItem *>(heading)) + 1;
    for (; row < m_tree->topLevelItemCount() && !isHeading(m_tree->topLevelItem(row)); ++row) {
        QTreeWidgetItem *item = m_tree->topLevelItem(row);
        item->setHidden(!open || seconds.contains(item));
    }
    m_tree->viewport()->update();
}

const CPropertyLayout::SPair *CPropertyLayout::pair(const QTreeWidgetItem *item) const
{
    const auto found = m_pairs.constFind(item);
    return found == m_pairs.constEnd() ? nullptr : &*found;
}

int CPropertyLayout::widestLetter(const QFontMetrics &metrics) const
{
    int widest = 0;
    for (const SPair &each : m_pairs) {
        for (const QString &letter : each.letters)
            widest = std::max(widest, metrics.horizontalAdvance(letter));
    }
    return widest;
}

QString CPropertyLayout::caption(const QTreeWidgetItem *item) const
{
    return m_captions.value(item, item->text(0));
}

bool CPropertyLayout::eventFilter(QObject *watched, QEvent *event)
{
    return (event->type() == QEvent::KeyPress && pressKey(*static_cast<QKeyEvent *>(event))) ||
           QObject::eventFilter(watched, event);
}

bool CPropertyLayout::pressKey(const QKeyEvent &event)
{
    QTreeWidgetItem *heading = m_tree->currentItem();
    if (!isHeading(heading) || event.modifiers() & ~Qt::KeypadModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        setOpen(heading, !isOpen(heading));
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        setOpen(heading, event.key() == Qt::Key_Right);
        return true;
    default:
        return false;
    }
}
