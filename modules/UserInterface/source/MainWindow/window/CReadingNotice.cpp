#include "CReadingNotice.h"

#include "ShownText.h"

#include <QAccessible>
#include <QEvent>
#include <QFileInfo>
#include <QMainWindow>

namespace {
constexpr int Delay = 300;    // ms
constexpr int CornerGap = 16; // pixels
constexpr int Margin = 8;     // pixels
} // namespace

CReadingNotice::CReadingNotice(QMainWindow *window) : QLabel(window), m_window(window)
{
    hide();
    setObjectName(QStringLiteral("readingNotice"));
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setMargin(Margin);
    setAutoFillBackground(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, [this] {
        place();
        show();
        QAccessibleEvent told(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&told);
    });
    window->installEventFilter(this);
}

void CReadingNotice::tell(const QString &path)
{
    m_path = path;
    hide();
    m_delay.stop();
    if (path.isEmpty())
        return;
    retranslate();
    m_delay.start();
}

void CReadingNotice::retranslate()
{
    setText(tr("Reading %1...").arg(ShownText::name(QFileInfo(m_path).fileName())));
    setAccessibleName(text());
    place();
}

void CReadingNotice::place()
{
    adjustSize();
    const QRect canvas = m_window->centralWidget()->geometry();
    move(canvas.bottomLeft() + QPoint(CornerGap, -height() - CornerGap));
    raise();
}

void CReadingNotice::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && !m_path.isEmpty())
        retranslate();
}

bool CReadingNotice::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Resize && isVisible())
        place();
    return QLabel::eventFilter(watched, event);
}
