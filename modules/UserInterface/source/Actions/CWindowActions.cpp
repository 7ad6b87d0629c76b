#include "CWindowActions.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>

namespace {
/// Without the marks of mnemonics, which stand in brackets behind texts of languages that have no
/// letters for them. A doubled mark stands for itself.
QString plain(const QString &text)
{
    static const QRegularExpression mark(QStringLiteral(R"(\(&\w\)|&(.?))"));
    return QString(text).replace(mark, QStringLiteral("\\1")).trimmed();
}

class CCollector
{
public:
    void addMenu(const QWidget *menu, const QString &path)
    {
        for (QAction *each : menu->actions()) {
            const QString text = plain(each->text());
            if (const QMenu *below = each->menu()) {
                addMenu(below, path.isEmpty() ? text : path + QStringLiteral(" \u203a ") + text);
            } else if (!each->isSeparator() && !text.isEmpty() && each->isVisible() &&
                       !m_seen.contains(each)) {
                m_seen.insert(each);
                found.append({each, each->objectName(), text, path});
            }
        }
    }

    QVector<CWindowActions::SAction> found;

private:
    QSet<const QAction *> m_seen;
};
} // namespace

CWindowActions::CWindowActions(QMainWindow *window) : QObject(window), m_window(window)
{
}

QVector<CWindowActions::SAction> CWindowActions::all() const
{
    CCollector collector;
    collector.addMenu(m_window->menuBar(), {});
    collector.addMenu(m_window, {});
    return collector.found;
}

CShortcutMap CWindowActions::shortcuts()
{
    CShortcutMap map;
    const QVector<SAction> found = all();
    for (const SAction &each : found) {
        if (each.id.isEmpty())
            continue;
        if (!m_defaults.contains(each.id))
            m_defaults.insert(each.id, each.action->shortcuts());
        map.addAction(each.id, m_defaults.value(each.id));
    }
    map.setTexts(m_texts);
    return map;
}

void CWindowActions::setShortcuts(const CShortcutMap &map)
{
    m_texts = map.toTexts();
    const QVector<SAction> found = all();
    for (const SAction &each : found) { // first all away, so that no two have one at any time
        if (!each.id.isEmpty() && each.action->shortcuts() != map.keys(each.id))
            each.action->setShortcuts(CShortcutMap::Keys());
    }
    for (const SAction &each : found) {
        if (!each.id.isEmpty() && each.action->shortcuts() != map.keys(each.id))
            each.action->setShortcuts(map.keys(each.id));
    }
}

void CWindowActions::setShortcutTexts(const QStringList &texts)
{
    CShortcutMap map = shortcuts();
    map.setTexts(texts);
    setShortcuts(map);
}

QStringList CWindowActions::shortcutTexts()
{
    return shortcuts().toTexts();
}

QString CWindowActions::lack(const QAction &action)
{
    const QString told = action.property(LackProperty).toString();
    return told.isEmpty() ? action.statusTip() : told;
}
