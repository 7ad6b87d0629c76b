#include "COutputWindowView.h"

#include "ShownText.h"

#include <QApplication>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTime>

namespace {

constexpr int CountsDelay = 200; ///< milliseconds

/// The id in "<type> <id> "<name>": what is wrong", where the name may be missing; or -1.
qint64 itemNamedBy(const QString &error)
{
    static const QRegularExpression form(QStringLiteral("^\\S+ (\\d{1,10})(: | \")"));
    const QRegularExpressionMatch match = form.match(error);
    bool isNumber = false;
    const quint32 id = match.captured(1).toUInt(&isNumber);
    return isNumber ? qint64(id) : -1;
}

QString keyOf(const QString &screen, const QString &error)
{
    return screen + QChar(QChar::LineSeparator) + error;
}

/// Red with at least 4.5 : 1 on the pane's ground.
QColor errorColour(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    return isDark ? QColor(0xff, 0x9a, 0x94) : QColor(0x96, 0x10, 0x10);
}

} // namespace

COutputWindowView::COutputWindowView(QWidget *parent)
    : QTextEdit(parent),
      m_clock([] { return QTime::currentTime().toString(QStringLiteral("HH:mm:ss")); })
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    m_showCounts.setSingleShot(true);
    m_showCounts.setInterval(CountsDelay);
    connect(&m_showCounts, &QTimer::timeout, this, &COutputWindowView::showCounts);
    retranslate();
    viewport()->setMouseTracking(true);
}

void COutputWindowView::clear()
{
    m_messages.clear();
    m_known.clear();
    m_gone = 0;
    QTextEdit::clear();
}

void COutputWindowView::writeMessage(const QString &text)
{
    SMessage message;
    message.time = m_clock();
    message.text = text;
    append(message);
}

void COutputWindowView::writeRenderErrors(const QString &screenName, const QString &errors)
{
    QStringList lines = errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (lines.size() > MaxErrorsOfAFrame) {
        const int more = lines.size() - MaxErrorsOfAFrame;
        lines = lines.mid(0, MaxErrorsOfAFrame) << tr("and %1 more errors").arg(more);
    }
    keepAtEnd([&] {
        QTextCursor all(document());
        all.beginEditBlock(); // laid out once
        for (const QString &line : qAsConst(lines))
            writeRenderError(screenName, line.trimmed());
        all.endEditBlock();
    });
}

void COutputWindowView::writeRenderError(const QString &screenName, const QString &error)
{
    const QString key = keyOf(screenName, error);
    const auto known = m_known.constFind(key);
    if (known != m_known.constEnd()) {
        SMessage &message = m_messages[*known - m_gone];
        ++message.count;
        message.time = m_clock();
        message.isStale = true;
        if (!m_showCounts.isActive())
            m_showCounts.start();
        return;
    }
    SMessage message;
    message.time = m_clock();
    message.screen = screenName;
    message.text = error;
    message.itemId = itemNamedBy(error);
    append(message);
    m_known.insert(key, m_gone + m_messages.size() - 1);
}

void COutputWindowView::showCounts()
{
    keepAtEnd([this] {
        QTextCursor all(document());
        all.beginEditBlock();
        for (int index = 0; index < m_messages.size(); ++index) {
            if (m_messages.at(index).isStale)
                rewriteBlock(index);
            m_messages[index].isStale = false;
        }
        all.endEditBlock();
    });
}

void COutputWindowView::append(const SMessage &message)
{
    keepAtEnd([&] {
        if (m_messages.size() == MaxMessages)
            removeFirst();
        if (!m_messages.isEmpty()) {
            QTextCursor end(document());
            end.movePosition(QTextCursor::End);
            end.insertBlock();
        }
        m_messages.append(message);
        rewriteBlock(m_messages.size() - 1);
    });
}

void COutputWindowView::removeFirst()
{
    m_known.remove(keyOf(m_messages.first().screen, m_messages.first().text));
    m_messages.removeFirst();
    ++m_gone;
    QTextCursor first(document()->firstBlock());
    first.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    first.removeSelectedText();
}

void COutputWindowView::rewriteBlock(int index)
{
    const SMessage &message = m_messages.at(index);
    QTextCharFormat quiet;
    quiet.setForeground(QApplication::palette().color(QPalette::PlaceholderText));
    QTextCharFormat plain;
    if (!message.screen.isNull())
        plain.setForeground(errorColour(QApplication::palette()));
    if (message.itemId >= 0)
        plain.setToolTip(tr("Click to select the item"));

    QTextCursor cursor(document()->findBlockByNumber(index));
    cursor.beginEditBlock();
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.insertText(message.time + QStringLiteral("  "), quiet);
    QString text = ShownText::message(message.text);
    text.replace(QLatin1Char('\n'), QChar::LineSeparator); // a message stays one block
    if (!message.screen.isEmpty())
        text.prepend(ShownText::name(message.screen) + QStringLiteral("  "));
    cursor.insertText(text, plain);
    if (message.count > 1)
        cursor.insertText(QStringLiteral("  ") + tr("(%1 times)").arg(message.count), quiet);
    cursor.endEditBlock();
}

void COutputWindowView::rewriteAll()
{
    for (int index = 0; index < m_messages.size(); ++index)
        rewriteBlock(index);
}

/// Shows what was added only to who was looking at the end.
void COutputWindowView::keepAtEnd(const std::function<void()> &change)
{
    QScrollBar *bar = verticalScrollBar();
    const bool isAtEnd = bar->value() == bar->maximum();
    change();
    if (isAtEnd)
        bar->setValue(bar->maximum());
}

const COutputWindowView::SMessage *COutputWindowView::messageAt(const QPoint &position) const
{
    const QTextBlock block = cursorForPosition(position).block();
    const int index = block.blockNumber();
    if (index < 0 || index >= m_messages.size() ||
        cursorRect(QTextCursor(block)).top() > position.y())
        return nullptr;
    QTextCursor end(block);
    end.movePosition(QTextCursor::EndOfBlock);
    return position.y() <= cursorRect(end).bottom() ? &m_messages.at(index) : nullptr;
}

void COutputWindowView::changeEvent(QEvent *event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        rewriteAll();
}

/// The end stays in view in a lower window: what comes next would be missed otherwise.
void COutputWindowView::resizeEvent(QResizeEvent *event)
{
    keepAtEnd([this, event] { QTextEdit::resizeEvent(event); });
}

void COutputWindowView::retranslate()
{
    setPlaceholderText(tr("No messages"));
    rewriteAll();
}

void COutputWindowView::mouseMoveEvent(QMouseEvent *event)
{
    QTextEdit::mouseMoveEvent(event);
    const SMessage *message = messageAt(event->pos());
    const bool namesItem = message && message->itemId >= 0;
    viewport()->setCursor(namesItem ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void COutputWindowView::mouseReleaseEvent(QMouseEvent *event)
{
    QTextEdit::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || textCursor().hasSelection())
        return; // text is being selected for copying
    const SMessage *message = messageAt(event->pos());
    if (message && message->itemId >= 0)
        Q_EMIT itemActivated(message->screen, static_cast<quint32>(message->itemId));
}
