#include "CShortcutMap.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {
const QByteArray FileHead = "# Keyboard shortcuts of KIV Panel Composer\n";
constexpr int MaxFileBytes = 1 << 20;

bool areInTheWay(const QKeySequence &left, const QKeySequence &right)
{
    return !left.isEmpty() && !right.isEmpty() && // which is the beginning of all
           (left.matches(right) != QKeySequence::NoMatch ||
            right.matches(left) != QKeySequence::NoMatch);
}

/// Nothing for a text that names no key: Qt makes a key without a code of it.
CShortcutMap::Keys keysOf(const QString &text)
{
    CShortcutMap::Keys keys;
    const auto read = QKeySequence::listFromString(text, QKeySequence::PortableText);
    for (const QKeySequence &each : read) {
        bool isWhole = !each.isEmpty() && !keys.contains(each);
        for (int i = 0; i < each.count() && isWhole; ++i) {
            const int key = each[uint(i)] & ~int(Qt::KeyboardModifierMask);
            const bool isLetter = key < Qt::Key_Escape; // the first that is none
            isWhole = isLetter ? QChar::isPrint(uint(key))
                               : key != Qt::Key_unknown &&
                                     (key < Qt::Key_Shift || key > Qt::Key_ScrollLock);
        }
        if (isWhole && keys.size() < CShortcutMap::MaxKeys)
            keys.append(each);
    }
    return keys;
}

QString textOf(const QString &id, const CShortcutMap::Keys &keys)
{
    return id + QLatin1Char('=') + QKeySequence::listToString(keys, QKeySequence::PortableText);
}

/// An id and its keys; no id when the text is none of an action's keys.
std::pair<QString, CShortcutMap::Keys> partsOf(const QString &text)
{
    static const QRegularExpression form(QStringLiteral(R"(^([A-Za-z][\w.-]*)=(.*)$)"));
    const auto match = form.match(text);
    if (text.size() > CShortcutMap::MaxTextLength || !match.hasMatch())
        return {};
    const CShortcutMap::Keys keys = keysOf(match.captured(2));
    if (keys.isEmpty() && !match.captured(2).isEmpty())
        return {}; // not one of them is a key
    return {match.captured(1), keys};
}
} // namespace

void CShortcutMap::addAction(const QString &id, const Keys &defaults)
{
    if (m_defaults.contains(id))
        return;
    m_ids.append(id);
    m_defaults.insert(id, defaults);
}

CShortcutMap::Keys CShortcutMap::keys(const QString &id) const
{
    const auto changed = m_changed.find(id);
    return changed == m_changed.end() ? m_defaults.value(id) : *changed;
}

QString CShortcutMap::holder(const QKeySequence &wanted, const QString &except) const
{
    for (const QString &id : m_ids) {
        const Keys all = id == except ? Keys() : keys(id);
        if (std::any_of(all.begin(), all.end(),
                        [&wanted](const QKeySequence &each) { return areInTheWay(each, wanted); }))
            return id;
    }
    return {};
}

void CShortcutMap::setKeys(const QString &id, const Keys &keys)
{
    for (const QKeySequence &each : keys)
        take(each, id);
    if (keys == m_defaults.value(id))
        m_changed.remove(id);
    else
        m_changed[id] = keys;
}

/// From all but one. Who has lost them.
QStringList CShortcutMap::take(const QKeySequence &wanted, const QString &from)
{
    QStringList losers;
    for (QString id = holder(wanted, from); !id.isEmpty(); id = holder(wanted, from)) {
        Keys left = keys(id);
        left.erase(std::remove_if(
                       left.begin(), left.end(),
                       [&wanted](const QKeySequence &each) { return areInTheWay(each, wanted); }),
                   left.end());
        m_changed[id] = left;
        losers.append(id);
    }
    return losers;
}

void CShortcutMap::reset(const QString &id)
{
    setKeys(id, m_defaults.value(id));
}

void CShortcutMap::resetAll()
{
    m_changed.clear();
    m_foreign.clear();
}

QStringList CShortcutMap::toTexts() const
{
    QStringList texts;
    for (const QString &id : m_ids) {
        if (isChanged(id))
            texts.append(textOf(id, m_changed.value(id)));
    }
    return texts + m_foreign;
}

QVector<CShortcutMap::SConflict> CShortcutMap::setTexts(const QStringList &texts)
{
    resetAll();
    for (const QString &each : texts.mid(0, MaxTexts)) {
        const auto [id, keys] = partsOf(each);
        if (id.isEmpty())
            continue;
        if (!m_defaults.contains(id))
            m_foreign.append(textOf(id, keys));
        else if (keys != m_defaults.value(id))
            m_changed[id] = keys;
    }
    return settle();
}

QStringList CShortcutMap::passedOver(const QStringList &texts) const
{
    QStringList over;
    std::copy_if(texts.begin(), texts.end(), std::back_inserter(over),
                 [this](const QString &each) { return !m_defaults.contains(partsOf(each).first); });
    return over;
}

/// No key may have two meanings: neither would come to pass. What the user chose goes before what
/// an action came with.
QVector<CShortcutMap::SConflict> CShortcutMap::settle()
{
    QVector<SConflict> conflicts;
    QStringList done;
    for (const QString &id : qAsConst(m_ids)) {
        if (!isChanged(id))
            continue;
        Keys free;
        const Keys wanted = m_changed.value(id);
        for (const QKeySequence &each : wanted) {
            const auto holder = std::find_if(done.begin(), done.end(), [&](const QString &other) {
                const Keys taken = keys(other);
                return std::any_of(taken.begin(), taken.end(), [&each](const QKeySequence &key) {
                    return areInTheWay(key, each);
                });
            });
            if (holder != done.end()) {
                conflicts.append({each, *holder, id});
                continue;
            }
            for (const QString &loser : take(each, id))
                conflicts.append({each, id, loser});
            free.append(each);
        }
        m_changed[id] = free;
        done.append(id);
    }
    return conflicts;
}

QByteArray CShortcutMap::toFile() const
{
    return FileHead + toTexts().join(QLatin1Char('\n')).toUtf8() + '\n';
}

std::optional<QStringList> CShortcutMap::textsOfFile(const QByteArray &bytes)
{
    if (!bytes.startsWith(FileHead.trimmed()) || bytes.size() > MaxFileBytes)
        return {};
    QString text = QString::fromUtf8(bytes);
    text.remove(QLatin1Char('\r'));
    return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(1);
}
