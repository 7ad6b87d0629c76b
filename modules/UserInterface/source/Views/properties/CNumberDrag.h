#pragma once

#include <QObject>
#include <QPoint>
#include <QWidget>

#include <functional>

/// Drags on the label of a number, which change it: a step for each pixel, ten with Shift or Ctrl.
/// Escape takes the drag back; other keys do nothing until it is over. The pointer goes on at the
/// other edge of the display when it reaches one. Lives as a child of the widget that it watches.
class CNumberDrag : public QObject
{
    Q_OBJECT

public:
    struct SUse
    {
        /// Whether a number's label is there, in pixels of the watched widget.
        std::function<bool(const QPoint &)> isLabel;
        std::function<void(const QPoint &)> begin; ///< where the press was
        std::function<void(int)> show; ///< steps since the beginning, never twice as many
        std::function<void(bool)> end; ///< whether it is kept
    };
    CNumberDrag(QWidget *watched, const SUse &use);
    ~CNumberDrag() override;

    bool isActive() const { return m_isActive; }
    void cancel(); ///< nothing when none is under way

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool moved(const QPoint &global, Qt::KeyboardModifiers modifiers);
    void wrap(const QPoint &global);
    void end(bool isKept);
    void showCursor(const QPoint &place);

    QWidget *const m_watched; ///< the parent
    const SUse m_use;
    QPoint m_press; ///< in the widget
    QPoint m_last;  ///< on the display
    int m_steps = 0;
    bool m_isPressed = false;
    bool m_isActive = false;
    bool m_hasCursor = false;
};
