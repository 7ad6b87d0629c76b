#include "CShortcutDialog.h"

#include "CFileWriter.h"
#include "CKeyField.h"
#include "FuzzyMatch.h"
#include "ShownText.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr QSize FirstSize(760, 560);
constexpr int MaxFileBytes = 1 << 20;
const QString Suffix = QStringLiteral("keys");
enum EColumn { Name, Menu, Keys, ColumnCount };

QString shown(const CShortcutMap::Keys &keys)
{
    return QKeySequence::listToString(keys, QKeySequence::NativeText);
}

QFont weighted(QFont font, bool isBold)
{
    font.setBold(isBold);
    return font;
}
} // namespace

CShortcutDialog::CShortcutDialog(const QVector<CWindowActions::SAction> &actions,
                                 const CShortcutMap &map, const Reserved &fixed, QWidget *parent)
    : QDialog(parent),
      m_map(map),
      m_reserved(fixed),
      m_search(new QLineEdit(this)),
      m_list(new QTreeWidget(this)),
      m_field(new CKeyField(this)),
      m_message(new QLabel(this))
{
    setObjectName(QStringLiteral("shortcutDialog"));
    setWindowTitle(tr("Keyboard Shortcuts"));
    m_search->setObjectName(QStringLiteral("shortcutSearch"));
    m_search->setPlaceholderText(tr("Search by name, menu or keys"));
    m_search->setClearButtonEnabled(true);
    m_field->setObjectName(QStringLiteral("shortcutKeys"));
    m_field->setPlaceholderText(tr("Press the new keys; Esc leaves it as it is"));
    m_message->setObjectName(QStringLiteral("shortcutMessage"));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setMinimumHeight(2 * m_message->fontMetrics().lineSpacing());
    makeList(actions);
    layOut();
    connect(m_search, &QLineEdit::textChanged, this, &CShortcutDialog::filter);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &CShortcutDialog::showButtons);
    connect(m_list, &QTreeWidget::itemActivated, this, &CShortcutDialog::change);
    connect(m_field, &CKeyField::pressed, this, &CShortcutDialog::take);
    connect(m_field, &CKeyField::left, this, &CShortcutDialog::endAsking);
    showKeys();
    m_list->setCurrentItem(m_list->topLevelItem(0));
    for (const int column : {Name, Menu})
        m_list->resizeColumnToContents(column);
    resize(FirstSize.boundedTo(screen()->availableSize() * 9 / 10));
    m_search->setFocus();
}

void CShortcutDialog::makeList(const QVector<CWindowActions::SAction> &actions)
{
    m_list->setObjectName(QStringLiteral("shortcuts"));
    m_list->setColumnCount(ColumnCount);
    m_list->setHeaderLabels({tr("Action"), tr("Menu"), tr("Keys")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    for (const CWindowActions::SAction &each : actions) {
        if (each.id.isEmpty() || !m_map.ids().contains(each.id))
            continue;
        auto *row = new QTreeWidgetItem(
            m_list, QStringList{ShownText::name(each.text), ShownText::name(each.menu)});
        row->setData(Name, Qt::UserRole, each.id);
    }
}

QPushButton *CShortcutDialog::button(const char *name, const QString &text,
                                     void (CShortcutDialog::*slot)())
{
    auto *made = new QPushButton(text, this);
    made->setObjectName(QString::fromLatin1(name));
    made->setAutoDefault(false); // Enter in the list is for its row
    connect(made, &QPushButton::clicked, this, slot);
    return made;
}

void CShortcutDialog::layOut()
{
    m_change = button("shortcutChange", tr("&Change"), &CShortcutDialog::change);
    m_add = button("shortcutAdd", tr("&Add"), &CShortcutDialog::add);
    m_remove = button("shortcutRemove", tr("&Remove"), &CShortcutDialog::removeKeys);
    m_reset = button("shortcutReset", tr("R&eset"), &CShortcutDialog::reset);
    m_resetAll = button("shortcutResetAll", tr("Reset A&ll"), &CShortcutDialog::resetAll);
    m_import = button("shortcutImport", tr("&Import..."), &CShortcutDialog::importFile);
    m_export = button("shortcutExport", tr("E&xport..."), &CShortcutDialog::exportFile);
    auto *changes = new QHBoxLayout;
    changes->setSpacing(8);
    for (QWidget *each : {m_change, m_add, m_remove, m_reset})
        changes->addWidget(each);
    changes->addWidget(m_field, 1);
    auto *ends = new QHBoxLayout;
    ends->setSpacing(8);
    for (QWidget *each : {m_resetAll, m_import, m_export})
        ends->addWidget(each);
    auto *box = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    for (QAbstractButton *each : box->buttons())
        qobject_cast<QPushButton *>(each)->setAutoDefault(false);
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(box, &QDialogButtonBox::helpRequested, this, &CShortcutDialog::helpWanted);
    ends->addWidget(box, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(8);
    layout->addWidget(m_search);
    layout->addWidget(m_list, 1);
    layout->addLayout(changes);
    layout->addWidget(m_message);
    layout->addLayout(ends);
}

/// Down leads from the search into the list; Enter starts to change what is chosen there.
void CShortcutDialog::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QWidget *focused = focusWidget();
    if (event->key() == Qt::Key_F1)
        Q_EMIT helpWanted();
    else if (focused == m_search && event->key() == Qt::Key_Down)
        m_list->setFocus();
    else if (focused == m_search && isEnter)
        change();
    else if (!isEnter || (focused != m_list && focused != m_field)) // one of which has used it
        QDialog::keyPressEvent(event);
}

void CShortcutDialog::filter(const QString &typed)
{
    QTreeWidgetItem *best = nullptr;
    int bestScore = 0;
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        QTreeWidgetItem *each = m_list->topLevelItem(row);
        const auto score = FuzzyMatch::score(
            typed, each->text(Name), each->text(Menu) + QLatin1Char(' ') + each->text(Keys));
        each->setHidden(!score);
        if (score && (!best || *score > bestScore)) {
            best = each;
            bestScore = *score;
        }
    }
    m_list->setCurrentItem(best);
    if (best)
        m_list->scrollToItem(best);
}

void CShortcutDialog::showKeys()
{
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        QTreeWidgetItem *each = m_list->topLevelItem(row);
        const QString id = each->data(Name, Qt::UserRole).toString();
        each->setText(Keys, shown(m_map.keys(id)));
        each->setFont(Keys, weighted(m_list->font(), m_map.isChanged(id)));
        each->setToolTip(Keys, m_map.isChanged(id)
                                   ? tr("Before it was changed: %1").arg(shown(m_map.defaults(id)))
                                   : QString());
    }
    showButtons();
}

void CShortcutDialog::showButtons()
{
    const QString id = currentId();
    const bool isOne = !id.isEmpty();
    const int count = m_map.keys(id).size();
    m_change->setEnabled(isOne);
    m_field->setEnabled(isOne);
    m_add->setEnabled(isOne && count > 0 && count < CShortcutMap::MaxKeys);
    m_remove->setEnabled(isOne && count > 0);
    m_reset->setEnabled(isOne && m_map.isChanged(id));
    m_resetAll->setEnabled(!m_map.toTexts().isEmpty());
}

void CShortcutDialog::tell(const QString &text)
{
    m_message->setText(text);
}

QString CShortcutDialog::currentId() const
{
    const QTreeWidgetItem *current = m_list->currentItem();
    return current && !current->isHidden() ? current->data(Name, Qt::UserRole).toString()
                                           : QString();
}

QString CShortcutDialog::nameOf(const QString &id) const
{
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *each = m_list->topLevelItem(row);
        if (each->data(Name, Qt::UserRole).toString() == id)
            return each->text(Name);
    }
    return id;
}

void CShortcutDialog::change()
{
    ask(EWay::Instead);
}

void CShortcutDialog::add()
{
    ask(EWay::Besides);
}

void CShortcutDialog::ask(EWay way)
{
    if (currentId().isEmpty())
        return;
    m_way = way;
    m_warned = QKeySequence();
    m_field->clear();
    m_field->setFocus();
    tell(tr("The keys for \"%1\" are the ones that you press now.").arg(nameOf(currentId())));
}

/// Why not; empty when nothing is against it.
QString CShortcutDialog::objection(const QKeySequence &keys, const QString &id) const
{
    if (m_map.defaults(id).contains(keys))
        return {};
    const auto found = std::find_if(m_reserved.begin(), m_reserved.end(),
                                    [&keys](const auto &each) { return each.first == keys; });
    return found == m_reserved.end() ? QString() : found->second;
}

void CShortcutDialog::take(const QKeySequence &keys)
{
    const QString id = currentId();
    const QString text = keys.toString(QKeySequence::NativeText);
    const QString fixed = objection(keys, id);
    const QString holder = m_map.holder(keys, id);
    if (!fixed.isEmpty()) {
        tell(tr("%1 cannot be changed: %2.").arg(text, fixed));
        return;
    }
    if (!holder.isEmpty() && keys != m_warned) {
        m_warned = keys;
        tell(
            tr("%1 are the keys for \"%2\". Press them once more to take them from there, or press "
               "others.")
                .arg(text, nameOf(holder)));
        return;
    }
    CShortcutMap::Keys all = m_way == EWay::Besides ? m_map.keys(id) : CShortcutMap::Keys();
    if (!all.contains(keys))
        all.append(keys);
    const QString loser = holder.isEmpty() ? QString() : nameOf(holder);
    m_map.setKeys(id, all);
    showKeys();
    m_list->setFocus();
    tell(loser.isEmpty() ? tr("\"%1\" has the keys %2 now.").arg(nameOf(id), shown(all))
                         : tr("\"%1\" has the keys %2 now, and \"%3\" has them no longer.")
                               .arg(nameOf(id), shown(all), loser));
}

void CShortcutDialog::endAsking()
{
    m_field->clear();
    m_warned = QKeySequence();
    if (m_field->hasFocus()) {
        tell({});
        m_list->setFocus();
    }
}

void CShortcutDialog::removeKeys()
{
    m_map.setKeys(currentId(), {});
    showKeys();
    tell(tr("\"%1\" has no keys now.").arg(nameOf(currentId())));
}

/// Keys that somebody else has by now come back all the same, and that is told.
void CShortcutDialog::reset()
{
    const QString id = currentId();
    QStringList losers;
    for (const QKeySequence &each : m_map.defaults(id)) {
        const QString holder = m_map.holder(each, id);
        if (!holder.isEmpty())
            losers << nameOf(holder);
    }
    m_map.reset(id);
    showKeys();
    tell(losers.isEmpty()
             ? QString()
             : tr("The keys were taken from \"%1\".").arg(losers.join(QStringLiteral("\", \""))));
}

void CShortcutDialog::resetAll()
{
    m_map.resetAll();
    showKeys();
    tell(tr("All actions have the keys that they came with."));
}

void CShortcutDialog::exportFile()
{
    QFileDialog dialog(this, tr("Export Keyboard Shortcuts"), QString(),
                       tr("Keyboard shortcuts (*.keys)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(Suffix);
    dialog.selectFile(QStringLiteral("shortcuts.keys"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString path = dialog.selectedFiles().value(0);
    const QString problem = CFileWriter::write(path, m_map.toFile());
    tell(problem.isEmpty() ? tr("Saved %1").arg(ShownText::name(path))
                           : ShownText::message(problem));
}

void CShortcutDialog::importFile()
{
    QFileDialog dialog(this, tr("Import Keyboard Shortcuts"), QString(),
                       tr("Keyboard shortcuts (*.keys)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() == QDialog::Accepted)
        importFrom(dialog.selectedFiles().value(0));
}

void CShortcutDialog::importFrom(const QString &path)
{
    QFile file(path);
    const bool isOpen = QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly);
    const auto texts =
        CShortcutMap::textsOfFile(isOpen ? file.read(MaxFileBytes + 1) : QByteArray());
    if (!texts) {
        tell(tr("%1 holds no keyboard shortcuts.").arg(ShownText::name(file.fileName())));
        return;
    }
    CShortcutMap map = m_map;
    QStringList conflicts;
    for (const CShortcutMap::SConflict &each : map.setTexts(*texts))
        conflicts.append(tr("%1 are the keys for \"%2\", and \"%3\" does not have them.")
                             .arg(each.keys.toString(QKeySequence::NativeText), nameOf(each.winner),
                                  nameOf(each.loser)));
    for (const QString &id : map.ids()) {
        CShortcutMap::Keys free;
        for (const QKeySequence &each : map.keys(id)) {
            const QString fixed = objection(each, id);
            if (fixed.isEmpty())
                free.append(each);
            else
                conflicts.append(tr("%1 cannot be changed: %2.")
                                     .arg(each.toString(QKeySequence::NativeText), fixed));
        }
        if (free != map.keys(id))
            map.setKeys(id, free);
    }
    if (!conflicts.isEmpty() && !isTakenDespite(conflicts)) {
        tell(tr("The keys are as they were."));
        return;
    }
    m_map = map;
    showKeys();
    QString told = tr("The keys are those of the file %1.").arg(ShownText::name(file.fileName()));
    const QStringList over = map.passedOver(*texts);
    if (!over.isEmpty()) {
        constexpr int most = 3; // that are told
        told +=
            QLatin1Char('\n') +
            tr("%1 of its %2 lines say nothing here: %3")
                .arg(over.size())
                .arg(texts->size())
                .arg(ShownText::name(QStringList(over.mid(0, most)).join(QStringLiteral(", "))));
    }
    tell(told);
}

bool CShortcutDialog::isTakenDespite(const QStringList &conflicts)
{
    constexpr int most = 10; // that are told
    QStringList told = conflicts.mid(0, most);
    if (conflicts.size() > most)
        told.append(tr("And %1 more.").arg(conflicts.size() - most));
    QMessageBox box(QMessageBox::Question, windowTitle(),
                    tr("Not all keys of the file can be taken as they are."), QMessageBox::Cancel,
                    this);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(told.join(QLatin1Char('\n')));
    QPushButton *take = box.addButton(tr("Take &Keys"), QMessageBox::AcceptRole);
    box.setDefaultButton(take);
    box.exec();
    return box.clickedButton() == take;
}
