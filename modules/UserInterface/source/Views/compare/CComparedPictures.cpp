#include "CComparedPictures.h"

#include "PictureDifference.h"

#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int Margin = 6;          // pixels
constexpr double SwipeStep = 0.02; // of the width, a key
} // namespace

CComparedPictures::CComparedPictures(QWidget *parent)
    : QWidget(parent), m_modes(new QComboBox(this))
{
    m_modes->setObjectName(QStringLiteral("comparePictures"));
    for (int mode = 0; mode < ModeCount; ++mode)
        m_modes->addItem(QString());
    setMinimumSize(160, 90);
    setFocusPolicy(Qt::ClickFocus);
    connect(m_modes, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CComparedPictures::modeChanged);
    connect(&m_blink, &QTimer::timeout, this, [this] {
        m_isBlinkBefore = !m_isBlinkBefore;
        update();
    });
    retranslate();
    modeChanged();
}

void CComparedPictures::setPictures(const QImage &before, const QImage &now, const QString &note)
{
    m_before = before;
    m_now = now;
    m_difference = QImage();
    m_note = note;
    update();
}

void CComparedPictures::setMode(EMode mode)
{
    m_modes->setCurrentIndex(mode);
}

CComparedPictures::EMode CComparedPictures::mode() const
{
    return static_cast<EMode>(m_modes->currentIndex());
}

void CComparedPictures::modeChanged()
{
    setMouseTracking(mode() == Swipe);
    if (mode() == Blink && isVisible())
        m_blink.start(BlinkTime);
    else
        m_blink.stop();
    update();
}

/// Of a page that is on one side only, that one is shown.
QImage CComparedPictures::shown() const
{
    if (m_before.isNull() || m_now.isNull())
        return m_now.isNull() ? (mode() == Now ? QImage() : m_before)
                              : (mode() == Before ? QImage() : m_now);
    switch (mode()) {
    case Difference:
        return m_difference.isNull() ? differencePicture(m_before, m_now) : m_difference;
    case Before:
        return m_before;
    case Blink:
        return m_isBlinkBefore ? m_before : m_now;
    case Swipe: {
        QImage both = m_now;
        QPainter painter(&both);
        painter.setClipRect(QRectF(0, 0, m_swipe * m_before.width(), m_before.height()));
        painter.drawImage(0, 0, m_before);
        return both;
    }
    default:
        return m_now;
    }
}

QRect CComparedPictures::pictureRect() const
{
    const QRect room = rect().adjusted(Margin, Margin, -Margin, -Margin);
    const QImage &any = m_now.isNull() ? m_before : m_now;
    if (any.isNull())
        return room;
    QRect place(QPoint(), any.size().scaled(room.size(), Qt::KeepAspectRatio));
    place.moveCenter(room.center());
    return place;
}

void CComparedPictures::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    if (m_difference.isNull() && mode() == Difference && !m_before.isNull() && !m_now.isNull())
        m_difference = differencePicture(m_before, m_now);
    const QImage picture = shown();
    const QRect place = pictureRect();
    if (picture.isNull()) {
        painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, m_note);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, place.width() < picture.width());
    painter.drawImage(place, picture);
    if (mode() == Swipe && !m_before.isNull() && !m_now.isNull()) {
        const int x = place.left() + qRound(m_swipe * place.width());
        painter.fillRect(QRect(x - 1, place.top(), 2, place.height()), palette().highlight());
    }
}

void CComparedPictures::setSwipe(double swipe)
{
    m_swipe = std::clamp(swipe, 0.0, 1.0);
    update();
}

void CComparedPictures::mouseMoveEvent(QMouseEvent *event)
{
    const QRect place = pictureRect();
    if (mode() == Swipe && place.width() > 0)
        setSwipe(double(event->pos().x() - place.left()) / place.width());
}

void CComparedPictures::mousePressEvent(QMouseEvent *event)
{
    mouseMoveEvent(event);
}

void CComparedPictures::keyPressEvent(QKeyEvent *event)
{
    const bool isLeft = event->key() == Qt::Key_Left;
    if (mode() == Swipe && (isLeft || event->key() == Qt::Key_Right))
        setSwipe(m_swipe + (isLeft ? -SwipeStep : SwipeStep));
    else
        QWidget::keyPressEvent(event);
}

void CComparedPictures::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    modeChanged();
}

void CComparedPictures::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_blink.stop();
}

void CComparedPictures::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CComparedPictures::retranslate()
{
    const QString texts[ModeCount] = {tr("Difference"), tr("Before"), tr("Now"), tr("Blink"),
                                      tr("Swipe")};
    for (int mode = 0; mode < ModeCount; ++mode)
        m_modes->setItemText(mode, texts[mode]);
    m_modes->setToolTip(tr("How the page is shown before and now"));
}
