#include "CProbe.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QGraphicsView>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QSocketNotifier>
#include <QToolButton>
#include <QWindow>

#include <iostream>
#include <string>

namespace {
QString placeOf(const QWidget *widget, const QRect &rect)
{
    if (!widget->isVisible() || !widget->rect().contains(rect.center()) || rect.isEmpty())
        return QStringLiteral("none");
    const QPoint point = widget->mapToGlobal(rect.center());
    return QStringLiteral("%1 %2").arg(point.x()).arg(point.y());
}

/// The first visible widget that the predicate wants.
template<typename Predicate>
QWidget *visibleWidget(Predicate wanted)
{
    const QWidgetList all = QApplication::allWidgets();
    const auto found = std::find_if(all.begin(), all.end(), [&wanted](const QWidget *each) {
        return each->isVisible() && wanted(each);
    });
    return found == all.end() ? nullptr : *found;
}

QString scenePoint(const QStringList &words)
{
    const auto *view = qobject_cast<QGraphicsView *>(
        visibleWidget([](const QWidget *each) { return each->inherits("CScreenView"); }));
    if (!view)
        return QStringLiteral("none");
    const QPoint point = view->mapFromScene(words.value(0).toInt(), words.value(1).toInt());
    return placeOf(view->viewport(), QRect(point, QSize(1, 1)));
}

QString row(const QString &viewClass, const QString &text)
{
    const auto *view =
        qobject_cast<QAbstractItemView *>(visibleWidget([&viewClass](const QWidget *each) {
            return each->inherits(viewClass.toLatin1().constData());
        }));
    if (!view || !view->model())
        return QStringLiteral("none");
    const QModelIndexList found =
        view->model()->match(view->model()->index(0, 0), Qt::DisplayRole, text, 1,
                             Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
    return found.isEmpty() ? QStringLiteral("none")
                           : placeOf(view->viewport(), view->visualRect(found.first()));
}

QString menuEntry(const QString &text)
{
    const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        return QStringLiteral("none");
    for (QAction *each : menu->actions()) {
        if (each->text() == text && each->isEnabled())
            return placeOf(menu, menu->actionGeometry(each));
    }
    return QStringLiteral("none");
}

QString visibleWindows()
{
    QStringList classes;
    for (const QWindow *each : QGuiApplication::topLevelWindows()) {
        if (each->isVisible())
            classes.append(QString::fromLatin1(each->metaObject()->className()) + QLatin1Char(':') +
                           each->objectName());
    }
    return classes.join(QLatin1Char(' '));
}

} // namespace

QString CProbe::answerTo(const QString &question)
{
    const QString subject = question.section(QLatin1Char(' '), 0, 0);
    const QString rest = question.section(QLatin1Char(' '), 1);
    if (subject == QLatin1String("scene"))
        return scenePoint(rest.split(QLatin1Char(' ')));
    if (subject == QLatin1String("widget")) {
        const QWidget *widget =
            visibleWidget([&rest](const QWidget *each) { return each->objectName() == rest; });
        return widget ? placeOf(widget, widget->rect()) : QStringLiteral("none");
    }
    if (subject == QLatin1String("button")) {
        const QWidget *button = visibleWidget([&rest](const QWidget *each) {
            const auto *candidate = qobject_cast<const QAbstractButton *>(each);
            return candidate && candidate->text().remove(QLatin1Char('&')) == rest;
        });
        return button ? placeOf(button, button->rect()) : QStringLiteral("none");
    }
    if (subject == QLatin1String("corner")) {
        constexpr int Inside = 8; // pixels
        const QWidget *widget =
            visibleWidget([&rest](const QWidget *each) { return each->objectName() == rest; });
        return widget ? placeOf(widget, QRect(Inside, Inside, 1, 1)) : QStringLiteral("none");
    }
    if (subject == QLatin1String("tool")) {
        const QString name = rest.section(QLatin1Char(' '), 0, 0);
        const QString holder = rest.section(QLatin1Char(' '), 1);
        const QWidget *button = visibleWidget([&](const QWidget *each) {
            const auto *candidate = qobject_cast<const QToolButton *>(each);
            if (!candidate || !candidate->isEnabled() || !candidate->defaultAction() ||
                candidate->defaultAction()->objectName() != name)
                return false;
            const QWidget *parent = each->parentWidget();
            while (!holder.isEmpty() && parent && parent->objectName() != holder)
                parent = parent->parentWidget();
            return parent != nullptr;
        });
        return button ? placeOf(button, button->rect()) : QStringLiteral("none");
    }
    if (subject == QLatin1String("row"))
        return row(rest.section(QLatin1Char(' '), 0, 0), rest.section(QLatin1Char(' '), 1));
    if (subject == QLatin1String("menu"))
        return menuEntry(rest);
    if (subject == QLatin1String("windows"))
        return visibleWindows();
    if (subject == QLatin1String("active")) {
        const QWidget *active = QApplication::activeWindow();
        return active && active->inherits("QMainWindow") ? QStringLiteral("yes")
                                                         : QStringLiteral("no");
    }
    if (subject == QLatin1String("focus")) {
        const QWidget *focus = QApplication::focusWidget();
        return QLatin1String(focus ? focus->metaObject()->className() : "none");
    }
    if (subject == QLatin1String("clipboard"))
        return QGuiApplication::clipboard()->mimeData()->formats().join(QLatin1Char(' '));
    if (subject == QLatin1String("picture")) {
        const bool saved = QGuiApplication::primaryScreen()->grabWindow(0).save(rest);
        return saved ? QStringLiteral("yes") : QStringLiteral("no");
    }
    if (subject == QLatin1String("slowest"))
        return m_watchdog.takeSlowest().join(QLatin1String(" | "));
    if (subject == QLatin1String("quiet"))
        return QString::number(m_watchdog.quietTime());
    return QStringLiteral("none");
}

CProbe::CProbe() : m_watchdog(this)
{
    auto *input = new QSocketNotifier(fileno(stdin), QSocketNotifier::Read, this);
    connect(input, &QSocketNotifier::activated, this, &CProbe::answer);
}

/// One question at a time: the next one is asked when this one is answered.
void CProbe::answer()
{
    std::string question;
    if (std::getline(std::cin, question))
        std::cout << answerTo(QString::fromStdString(question)).toStdString() << std::endl;
    else
        sender()->deleteLater();
}

QObject *CProbePlugin::create(const QString &, const QString &)
{
    return new CProbe; // the application deletes it
}
