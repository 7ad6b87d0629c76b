#include "CErrorBox.h"

#include "ShownText.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTextEdit>

namespace {
constexpr int QuietWidth = 420; // pixels
constexpr int CornerGap = 16;   // pixels
constexpr int TextLines = 3;    // the fixed texts take one, and the margins the rest
} // namespace

CErrorBox::CErrorBox(QWidget *window)
    : QErrorMessage(window),
      m_text(findChild<QTextEdit *>()),
      m_reason(new QLabel),
      m_saveAs(new QPushButton)
{
    setWindowModality(Qt::WindowModal);
    m_reason->setObjectName(QStringLiteral("errorReason"));
    m_reason->setTextFormat(Qt::PlainText);
    m_reason->setWordWrap(true);
    m_reason->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_saveAs->setObjectName(QStringLiteral("errorSaveAs"));
    m_saveAs->setAutoDefault(false);
    m_saveAs->hide();
    m_text->setMaximumHeight(TextLines * fontMetrics().height());
    findChild<QCheckBox *>()->hide();
    auto *grid = qobject_cast<QGridLayout *>(layout());
    grid->addWidget(m_reason, 1, 1, Qt::AlignTop);
    grid->setRowStretch(0, 0);
    grid->setRowStretch(1, 1);
    auto *ok = findChild<QPushButton *>();
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton *each : {m_saveAs, ok}) {
        each->setFocusPolicy(Qt::TabFocus); // a click in the corner leaves the canvas its focus
        buttons->addWidget(each);
    }
    grid->addLayout(buttons, 2, 0, 1, 2);
    connect(m_text, &QTextEdit::textChanged, this, &CErrorBox::showReason);
    connect(m_saveAs, &QPushButton::clicked, this, &CErrorBox::saveAsWanted);
    window->installEventFilter(this);
    retranslate();
}

void CErrorBox::retranslate()
{
    m_saveAs->setText(tr("Save As..."));
}

void CErrorBox::tell(const QString &text, const QString &reason)
{
    const QString shown = ShownText::message(text);
    if (m_isQuiet)
        hide(); // it has been seen, and this one is to be answered
    if (!isVisible())
        setQuiet(false);
    m_reasons.insert(shown, reason);
    showMessage(shown.toHtmlEscaped());
    showReason();
}

void CErrorBox::tellQuietly(const QString &text, const QString &reason)
{
    const QString shown = ShownText::message(text);
    if (!parentWidget()->isVisible()) {
        tell(shown, reason);
        return;
    }
    m_reasons.insert(shown, reason);
    if (isVisible() && m_isQuiet) {
        showReason();
        return;
    }
    if (!isVisible())
        setQuiet(true);
    showMessage(shown.toHtmlEscaped());
    showReason();
}

void CErrorBox::withdrawQuiet()
{
    if (m_isQuiet)
        hide();
}

/// A child of the window can take neither its activity nor its focus, whatever the window manager
/// makes of new windows.
void CErrorBox::setQuiet(bool isQuiet)
{
    if (isQuiet == m_isQuiet)
        return;
    m_isQuiet = isQuiet;
    setWindowFlags(isQuiet ? Qt::Widget : Qt::Dialog);
    setWindowModality(isQuiet ? Qt::NonModal : Qt::WindowModal);
    setAutoFillBackground(isQuiet);
    m_saveAs->setVisible(isQuiet);
    setAttribute(Qt::WA_Moved, false); // as a dialog, in the middle of the window again
}

void CErrorBox::showReason()
{
    const QString reason = m_reasons.value(m_text->toPlainText());
    m_reason->setText(ShownText::message(reason));
    m_reason->setVisible(!reason.isEmpty());
    stayInCorner();
}

void CErrorBox::stayInCorner()
{
    if (!m_isQuiet)
        return;
    resize(QuietWidth, std::max(sizeHint().height(), heightForWidth(QuietWidth)));
    move(parentWidget()->rect().bottomRight() - QPoint(width() + CornerGap, height() + CornerGap));
    raise();
}

void CErrorBox::paintEvent(QPaintEvent *event)
{
    QErrorMessage::paintEvent(event);
    if (!m_isQuiet)
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

bool CErrorBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        stayInCorner();
    return QErrorMessage::eventFilter(watched, event);
}
