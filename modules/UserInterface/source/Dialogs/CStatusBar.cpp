#include "CStatusBar.h"

#include "CElidedLabel.h"

#include <QEvent>
#include <QMainWindow>

namespace {

/// Room for four-digit coordinates, so that the other fields stay where they are while the pointer
/// moves; in a narrow window for the figures alone.
void reserveForCursor(CElidedLabel *label)
{
    const QString figures = QStringLiteral("8888, -8888");
    label->reserve(CStatusBar::tr("Cursor position: ") + figures, figures);
}

} // namespace

CStatusBar::CStatusBar(QMainWindow *window)
    : QStatusBar(window), m_window(window), m_bar(new QStatusBar(window)), m_labels()
{
    hide(); // the inner bar is the one that is seen
    m_window->setStatusBar(m_bar);
    const char *const names[] = {"cursor", "widgets", "bitmaps", "hidden", "memory", "budget"};
    for (size_t field = 0; field < FieldCount; ++field) {
        m_labels[field] = new CElidedLabel(field == Cursor ? Qt::ElideLeft : Qt::ElideRight, m_bar);
        m_labels[field]->setObjectName(QLatin1String(names[field]));
        m_bar->addWidget(m_labels[field], 0);
    }
    m_bar->setMinimumWidth(1); // the window may be narrower than the texts
    reserveForCursor(m_labels[Cursor]);
}

CStatusBar::~CStatusBar()
{
    delete m_bar;
}

/// Shows what a field says, and says it again in another language.
void CStatusBar::show(Field field, const std::function<QString()> &text)
{
    m_sayings[field] = text;
    m_texts[field] = text ? text() : QString();
    m_labels[field]->setText(m_texts[field]);
    m_labels[field]->setToolTip(m_texts[field]);
}

void CStatusBar::receiveMouseMoveUpdate(QPoint point)
{
    show(Cursor, [point] {
        return tr("Cursor position: ") + QString::number(point.x()) + QStringLiteral(", ") +
               QString::number(point.y());
    });
    m_labels[Widgets]->setText(m_texts[Widgets]);
}

void CStatusBar::receiveWidgetCountUpdate(int widgetCount)
{
    show(Widgets, [widgetCount] { return QString::number(widgetCount) + tr(" widgets"); });
}

void CStatusBar::receiveBitmapCountUpdate(int bitmapCount)
{
    show(Bitmaps, [bitmapCount] { return QString::number(bitmapCount) + tr(" bitmaps"); });
}

void CStatusBar::receiveHiddenCountUpdate(int hiddenCount)
{
    if (hiddenCount == 0)
        show(Hidden, nullptr);
    else
        show(Hidden, [hiddenCount] {
            return tr("%1 hidden: exported, but not in these figures").arg(hiddenCount);
        });
}

void CStatusBar::receiveMemoryUsage(size_t dlBinBufferSize, size_t RAM_G_Usage)
{
    show(Memory, [dlBinBufferSize, RAM_G_Usage] {
        return QString::number(dlBinBufferSize) + tr(" bytes RAM_DL used,") +
               QString::number(RAM_G_Usage) + tr(" bytes RAM_G used");
    });
    if (m_memoryBudget == 0)
        return;
    show(Budget, [budget = m_memoryBudget, RAM_G_Usage] {
        return tr("of %1 (%2 %)")
            .arg(budget)
            .arg((uint64_t(RAM_G_Usage) * 100 + budget - 1) / budget);
    });
}

void CStatusBar::setMemoryBudget(uint32_t bytes)
{
    m_memoryBudget = bytes;
}

void CStatusBar::resetStatusBar()
{
    for (size_t field = 0; field < FieldCount; ++field)
        show(static_cast<Field>(field), nullptr);
}

void CStatusBar::changeEvent(QEvent *event)
{
    QStatusBar::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !m_bar)
        return;
    reserveForCursor(m_labels[Cursor]);
    for (size_t field = 0; field < FieldCount; ++field) {
        const std::function<QString()> saying = m_sayings[field]; // which it is put back to
        show(static_cast<Field>(field), saying);
    }
}
