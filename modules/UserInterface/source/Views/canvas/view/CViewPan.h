#pragma once

#include <QPoint>
#include <Qt>

class QAbstractScrollArea;
class QMouseEvent;

/// A view is moved by hand: with the middle button, or with the left one while Space is held. The
/// cursor shows both. Mouse events are asked here first; the answer says whether that was all.
class CViewPan
{
public:
    /// The view must outlive it.
    explicit CViewPan(QAbstractScrollArea &view) : m_view(view) {}

    bool isActive() const { return m_button != Qt::NoButton; }
    bool isReady() const { return m_isReady; } ///< Space is held
    void setReady(bool isReady);

    bool press(const QMouseEvent &event);
    /// Ends it when the button was released where the view has not heard of it.
    bool move(const QMouseEvent &event);
    bool release(const QMouseEvent &event);

private:
    void end();

    QAbstractScrollArea &m_view;
    QPoint m_pos;
    Qt::MouseButton m_button = Qt::NoButton; ///< whose release ends it
    bool m_isReady = false;
};
