#pragma once

#include "CPicturePairs.h"

#include <QAbstractScrollArea>
#include <QPointF>
#include <QTimer>

class QComboBox;
class QToolButton;

/// A page before and now: one of them, what differs, both in turn, one beside the other, or the
/// one over the other with a line between them that follows the pointer. All of them share zoom and
/// place, and have what changed outlined.
class CComparedPictures final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    enum EMode { Difference, Before, Now, SideBySide, Blink, Swipe, ModeCount };
    static constexpr int BlinkTime = 700;   ///< milliseconds
    static constexpr double MaxZoom = 16.0; ///< pixels of the widget for one of the picture
    static constexpr double MinZoom = 0.125;

    explicit CComparedPictures(QWidget *parent = nullptr);

    QWidget *controls() const { return m_controls; } ///< for whoever lays it out beside this
    void setPictures(const CPicturePairs::SShown &shown);
    /// What stands in the place of pictures that are not there.
    void setNote(const QString &note);
    /// The frame of what is chosen, before and now; null where it is not.
    void setMarks(const QRect &before, const QRect &now);
    void setMode(EMode mode);
    EMode mode() const;
    /// What is shown, without lines; of two beside each other, that of now.
    QImage shown() const;

    void fit(); ///< all of the picture, however large the widget is
    bool isFitted() const { return m_zoom <= 0; }
    double zoom() const; ///< also of a fitted one
    /// `at`: stays where it is, in the widget.
    void zoomTo(double zoom, const QPointF &at);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QSize pictureSize() const;
    bool hasBoth() const { return !m_shown.before.isNull() && !m_shown.now.isNull(); }
    QVector<QRect> panes() const;
    QRectF pictureRect(const QRect &pane) const;
    double fittingZoom() const;
    void paintPane(QPainter &painter, const QRect &pane, const QImage &picture) const;
    void paintOutlines(QPainter &painter, const QRectF &place) const;
    void updateScrollBars();
    void zoomBy(int steps, const QPointF &at);
    void setSwipe(double swipe);
    void modeChanged();
    void showZoom();
    void retranslate();

    QWidget *const m_controls;
    QComboBox *const m_modes;
    QToolButton *const m_fit;
    QToolButton *const m_whole; ///< a pixel for a pixel
    CPicturePairs::SShown m_shown;
    QRect m_markBefore;
    QRect m_markNow;
    QString m_note;
    QTimer m_blink;
    bool m_isBlinkBefore = false;
    double m_swipe = 0.5; ///< part of the width that is shown as before
    double m_zoom = 0;    ///< 0: fitted
    QPoint m_grip;        ///< where the pointer was last, while it drags
};
