#pragma once

#include <QMargins>
#include <QObject>
#include <QRect>
#include <QVector>

class QWidget;

/// Keeps a window whole on a screen when it first appears: with the frame that the window manager
/// puts round it, whose size is not known before.
class CWindowPlacement final : public QObject
{
    Q_OBJECT

public:
    /// Watches the window, which owns this, until it has its frame.
    explicit CWindowPlacement(QWidget *window);

    /// The rectangle of a window's contents nearest to `wanted` with which contents and frame lie
    /// on the screen that shows most of it, or on the first one when none does. Larger than that
    /// screen it is made smaller. As it is when there is no screen.
    static QRect placed(const QRect &wanted, const QMargins &frame, const QVector<QRect> &screens);

    /// The free areas of the screens, the one with the window first.
    static QVector<QRect> screensOf(const QWidget &window);
    /// What a frame is likely to take; until there is one.
    static QMargins likelyFrame(const QWidget &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();

    QWidget *const m_window; ///< the parent
};
