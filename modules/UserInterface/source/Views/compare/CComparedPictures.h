#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>

class QComboBox;

/// A page before and now: one of them, what differs, both in turn, or one beside the other with a
/// line between them that follows the pointer.
class CComparedPictures final : public QWidget
{
    Q_OBJECT

public:
    enum EMode { Difference, Before, Now, Blink, Swipe, ModeCount };
    static constexpr int BlinkTime = 700; ///< milliseconds

    explicit CComparedPictures(QWidget *parent = nullptr);

    QComboBox *modes() const { return m_modes; } ///< for whoever lays it out beside this
    /// Null ones are not there (yet). `note` stands in their place.
    void setPictures(const QImage &before, const QImage &now, const QString &note);
    void setMode(EMode mode);
    EMode mode() const;
    /// What is shown, without the line.
    QImage shown() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QRect pictureRect() const;
    void setSwipe(double swipe);
    void modeChanged();
    void retranslate();

    QComboBox *const m_modes;
    QImage m_before;
    QImage m_now;
    QImage m_difference; ///< null until it is wanted
    QString m_note;
    QTimer m_blink;
    bool m_isBlinkBefore = false;
    double m_swipe = 0.5; ///< part of the width that is shown as before
};
