#pragma once

#include <QHash>
#include <QTextEdit>
#include <QTimer>
#include <QVector>

#include <functional>

/// The pane that the program writes its messages into, each with the time. What the renderer
/// reports is written in the colour of errors, with the screen's name, and what it repeats is
/// counted in the line that is there already: shortly after, because it comes with every frame.
/// Keeps the newest MaxMessages messages, and of one frame the first MaxErrorsOfAFrame errors.
class COutputWindowView : public QTextEdit
{
    Q_OBJECT

public:
    static constexpr int MaxMessages = 1000;
    static constexpr int MaxErrorsOfAFrame = 100;
    using Clock = std::function<QString()>; ///< the text of the time a message comes

    explicit COutputWindowView(QWidget *parent = nullptr);

    /// For tests; the time of day otherwise.
    void setClock(const Clock &clock) { m_clock = clock; }
    void clear();

public Q_SLOTS:
    void writeMessage(const QString &text);
    /// What rendering a screen reported, an error a line; an empty text does nothing.
    void writeRenderErrors(const QString &screenName, const QString &errors);

Q_SIGNALS:
    /// A click on an error that names an item.
    void itemActivated(const QString &screenName, quint32 itemId);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    struct SMessage
    {
        QString time;
        QString screen; ///< empty for what is no render error
        QString text;
        qint64 itemId = -1; ///< of the item that the error names; -1: none
        int count = 1;
        bool isStale = false; ///< counted, but not shown yet
    };

    void append(const SMessage &message);
    void writeRenderError(const QString &screenName, const QString &error);
    void removeFirst();
    void showCounts();
    void rewriteBlock(int index);
    void rewriteAll();
    void retranslate();
    void keepAtEnd(const std::function<void()> &change);
    const SMessage *messageAt(const QPoint &position) const;

    Clock m_clock;
    QVector<SMessage> m_messages; ///< one a text block, in order
    QHash<QString, int> m_known;  ///< render errors, with their numbers since the beginning
    int m_gone = 0;               ///< how many messages are no longer kept
    QTimer m_showCounts;
};
