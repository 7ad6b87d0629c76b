#include "COutputWindowView.h"

#include <QApplication>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTime>

#include <algorithm>

namespace {

/// The id in "<type> <id>: what is wrong", or -1.
qint64 itemNamedBy(const QString &error)
{
    static const QRegularExpression form(QStringLiteral("^\\S+ (\\d{1,10}): "));
    const QRegularExpressionMatch match = form.match(error);
    bool isNumber = false;
    const quint32 id = match.captured(1).toUInt(&isNumber);
    return isNumber ? qint64(id) : -1;
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
    retranslate();
    viewport()->setMouseTracking(true);
}

void COutputWindowView::clear()
{
    m_messages.clear();
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
    const QStringList lines = errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines)
        writeRenderError(screenName, line.trimmed());
}

void COutputWindowView::writeRenderError(const QString &screenName, const QString &error)
{
    const auto known =
        std::find_if(m_messages.begin(), m_messages.end(), [&](const SMessage &each) {
            return each.text == error && each.screen == screenName;
        });
    if (known != m_messages.end()) {
        ++known->count;
        known->time = m_clock();
        rewriteBlock(static_cast<int>(known - m_messages.begin()));
        return;
    }
    SMessage message;
    message.time = m_clock();
    message.screen = screenName;
    message.text = error;
    message.itemId = itemNamedBy(error);
    append(message);
}

void COutputWindowView::append(const SMessage &message)
{
    keepAtEnd([&] {
        if (m_messages.size() == MaxMessages) {
            m_messages.removeFirst();
            QTextCursor first(document()->firstBlock());
            first.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
            first.removeSelectedText();
        }
        if (!m_messages.isEmpty()) {
            QTextCursor end(document());
            end.movePosition(QTextCursor::End);
            end.insertBlock();
        }
        m_messages.append(message);
        rewriteBlock(m_messages.size() - 1);
    });
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
    QString text = message.text;
    text.replace(QLatin1Char('\n'), QChar::LineSeparator); // a message stays one block
    if (!message.screen.isEmpty())
        text.prepend(message.screen + QStringLiteral("  "));
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
