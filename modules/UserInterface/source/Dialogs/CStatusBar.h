#pragma once

#include <QPoint>
#include <QPointer>
#include <QStatusBar>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>

class CElidedLabel;
class QMainWindow;

/// Tells about the shown screen: where the pointer is, how many widgets and bitmaps it has and how
/// much of the chip's memory it takes, of how much. What is seen is an inner bar that belongs to
/// the window.
class CStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    /// Installs the inner bar in the window, which must live longer.
    explicit CStatusBar(QMainWindow *window);
    ~CStatusBar() override;

    QStatusBar *bar() const { return m_bar; }
    /// Of RAM_G, for a screen; stands beside the use from the next time that it is received.
    void setMemoryBudget(uint32_t bytes);

public Q_SLOTS:
    void receiveMouseMoveUpdate(QPoint point); ///< in pixels of the screen
    void receiveWidgetCountUpdate(int widgetCount);
    void receiveBitmapCountUpdate(int bitmapCount);
    /// Items that the canvas does not draw; nothing is told of none.
    void receiveHiddenCountUpdate(int hiddenCount);
    void receiveMemoryUsage(size_t dlBinBufferSize, size_t RAM_G_Usage); ///< bytes
    void resetStatusBar();

protected:
    void changeEvent(QEvent *event) override;

private:
    enum Field { Cursor, Widgets, Bitmaps, Hidden, Memory, Budget, FieldCount };

    void show(Field field, const std::function<QString()> &text);

    QMainWindow *const m_window; ///< not owned
    QPointer<QStatusBar> m_bar;  ///< the window deletes it with itself
    uint32_t m_memoryBudget = 0; ///< bytes; 0: not known
    std::array<CElidedLabel *, FieldCount> m_labels;
    std::array<QString, FieldCount> m_texts;
    std::array<std::function<QString()>, FieldCount> m_sayings; ///< how the texts are made
};
