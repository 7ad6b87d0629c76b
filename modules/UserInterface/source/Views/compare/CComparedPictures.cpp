#include "CComparedPictures.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {
constexpr int Margin = 6;          // pixels
constexpr int Gap = 6;             // between two pictures
constexpr double SwipeStep = 0.02; // of the width, a key
constexpr double ZoomSteps[] = {0.125, 0.25, 1 / 3., 0.5, 2 / 3., 1, 1.5, 2, 3, 4, 6, 8, 12, 16};
const QColor ChangedColour(0xe5, 0x48, 0x4d); // as in the difference picture
const QColor ChosenColour(0x1f, 0x6f, 0xb2);  // seen on it, too

QToolButton *makeButton(const char *name)
{
    auto *button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setCheckable(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}
} // namespace

CComparedPictures::CComparedPictures(QWidget *parent)
    : QAbstractScrollArea(parent),
      m_controls(new QWidget),
      m_modes(new QComboBox),
      m_fit(makeButton("compareFit")),
      m_whole(makeButton("compareWhole"))
{
    m_modes->setObjectName(QStringLiteral("comparePictures"));
    for (int mode = 0; mode < ModeCount; ++mode)
        m_modes->addItem(QString());
    auto *layout = new QHBoxLayout(m_controls);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget *each : {static_cast<QWidget *>(m_modes), static_cast<QWidget *>(m_fit),
                          static_cast<QWidget *>(m_whole)})
        layout->addWidget(each);
    setMinimumSize(160, 90);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    connect(m_modes, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CComparedPictures::modeChanged);
    connect(m_fit, &QToolButton::clicked, this, &CComparedPictures::fit);
    connect(m_whole, &QToolButton::clicked, this,
            [this] { zoomTo(1, QRectF(viewport()->rect()).center()); });
    connect(&m_blink, &QTimer::timeout, this, [this] {
        m_isBlinkBefore = !m_isBlinkBefore;
        viewport()->update();
    });
    retranslate();
    modeChanged();
}

void CComparedPictures::setPictures(const CPicturePairs::SShown &shown)
{
    m_shown = shown;
    updateScrollBars();
}

void CComparedPictures::setNote(const QString &note)
{
    m_note = note;
    viewport()->update();
}

void CComparedPictures::setMarks(const QRect &before, const QRect &now)
{
    m_markBefore = before;
    m_markNow = now;
    viewport()->update();
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
    viewport()->setMouseTracking(mode() == Swipe);
    if (mode() == Blink && isVisible())
        m_blink.start(BlinkTime);
    else
        m_blink.stop();
    updateScrollBars();
}

/// Of a page that is on one side only, that one is shown.
QImage CComparedPictures::shown() const
{
    if (!hasBoth())
        return m_shown.now.isNull() ? (mode() == Now ? QImage() : m_shown.before)
                                    : (mode() == Before ? QImage() : m_shown.now);
    switch (mode()) {
    case Difference:
        return m_shown.difference;
    case Before:
        return m_shown.before;
    case Blink:
        return m_isBlinkBefore ? m_shown.before : m_shown.now;
    case Swipe: {
        QImage both = m_shown.now;
        QPainter painter(&both);
        painter.setClipRect(QRectF(0, 0, m_swipe * both.width(), both.height()));
        painter.drawImage(0, 0, m_shown.before);
        return both;
    }
    default:
        return m_shown.now;
    }
}

QSize CComparedPictures::pictureSize() const
{
    return (m_shown.now.isNull() ? m_shown.before : m_shown.now).size();
}

/// Where pictures are painted, the one of before first.
QVector<QRect> CComparedPictures::panes() const
{
    const QRect room = viewport()->rect();
    if (mode() != SideBySide || !hasBoth())
        return {room};
    const int width = (room.width() - Gap) / 2;
    return {QRect(0, 0, width, room.height()),
            QRect(room.width() - width, 0, width, room.height())};
}

/// A pixel of the picture is a whole number of those of the display, or less than one.
double CComparedPictures::fittingZoom() const
{
    const QSize size = pictureSize();
    const QSize room = panes().first().size() - QSize(2 * Margin, 2 * Margin);
    if (size.isEmpty() || room.isEmpty())
        return 1;
    const double zoom =
        std::min(double(room.width()) / size.width(), double(room.height()) / size.height());
    const double ratio = devicePixelRatioF();
    return zoom * ratio < 1 ? zoom : std::min(std::floor(zoom * ratio) / ratio, MaxZoom);
}

double CComparedPictures::zoom() const
{
    return isFitted() ? fittingZoom() : m_zoom;
}

/// In the middle of the pane, or as far as it is scrolled.
QRectF CComparedPictures::pictureRect(const QRect &pane) const
{
    const QSizeF size = QSizeF(pictureSize()) * zoom();
    QRectF place(QPointF(), size);
    place.moveCenter(QRectF(pane).center());
    const double ratio = devicePixelRatioF(); // on the display's pixels
    place.moveTopLeft(
        {std::round(place.x() * ratio) / ratio, std::round(place.y() * ratio) / ratio});
    if (horizontalScrollBar()->maximum() > 0)
        place.moveLeft(pane.left() + Margin - horizontalScrollBar()->value());
    if (verticalScrollBar()->maximum() > 0)
        place.moveTop(pane.top() + Margin - verticalScrollBar()->value());
    return place;
}

void CComparedPictures::updateScrollBars()
{
    const QSizeF size = isFitted() ? QSizeF() : QSizeF(pictureSize()) * m_zoom;
    const QSize room = panes().first().size() - QSize(2 * Margin, 2 * Margin);
    horizontalScrollBar()->setRange(0, std::max(0, int(std::ceil(size.width())) - room.width()));
    verticalScrollBar()->setRange(0, std::max(0, int(std::ceil(size.height())) - room.height()));
    horizontalScrollBar()->setPageStep(room.width());
    verticalScrollBar()->setPageStep(room.height());
    showZoom();
    viewport()->update();
}

void CComparedPictures::showZoom()
{
    m_fit->setChecked(isFitted());
    m_whole->setChecked(m_zoom == 1.0);
    const int percent = qRound(zoom() * 100);
    m_controls->setToolTip(pictureSize().isEmpty() ? QString() : tr("Zoom: %1 %").arg(percent));
}

void CComparedPictures::fit()
{
    m_zoom = 0;
    updateScrollBars();
}

void CComparedPictures::zoomTo(double zoom, const QPointF &at)
{
    const QVector<QRect> all = panes();
    const QRect pane = at.x() < all.last().left() ? all.first() : all.last();
    const QRectF before = pictureRect(pane);
    const QPointF point = (at - before.topLeft()) / this->zoom(); // of the picture
    m_zoom = std::clamp(zoom, MinZoom, MaxZoom);
    updateScrollBars();
    horizontalScrollBar()->setValue(qRound(point.x() * m_zoom - (at.x() - pane.left() - Margin)));
    verticalScrollBar()->setValue(qRound(point.y() * m_zoom - (at.y() - pane.top() - Margin)));
}

void CComparedPictures::zoomBy(int steps, const QPointF &at)
{
    double next = zoom();
    for (; steps > 0; --steps)
        next = *std::min(std::upper_bound(std::begin(ZoomSteps), std::end(ZoomSteps), next * 1.001),
                         std::end(ZoomSteps) - 1);
    for (; steps < 0; ++steps) {
        const auto at_least =
            std::lower_bound(std::begin(ZoomSteps), std::end(ZoomSteps), next * 0.999);
        next = at_least == std::begin(ZoomSteps) ? *at_least : *(at_least - 1);
    }
    zoomTo(next, at);
}

void CComparedPictures::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(viewport());
    const QVector<QRect> all = panes();
    if (all.size() == 2) {
        paintPane(painter, all[0], m_shown.before);
        paintPane(painter, all[1], m_shown.now);
        return;
    }
    const bool isSwiped = mode() == Swipe && hasBoth();
    const QImage picture = isSwiped ? m_shown.now : shown();
    if (picture.isNull()) {
        painter.drawText(all[0].adjusted(Margin, Margin, -Margin, -Margin),
                         Qt::AlignCenter | Qt::TextWordWrap, m_note);
        return;
    }
    paintPane(painter, all[0], picture);
    if (!isSwiped)
        return;
    const QRectF place = pictureRect(all[0]);
    const double x = place.left() + m_swipe * place.width();
    painter.save();
    painter.setClipRect(QRectF(place.topLeft(), QPointF(x, place.bottom())));
    paintPane(painter, all[0], m_shown.before);
    painter.restore();
    painter.fillRect(QRectF(x - 1, place.top(), 2, place.height()), palette().highlight());
}

/// Only what is seen of it.
void CComparedPictures::paintPane(QPainter &painter, const QRect &pane, const QImage &picture) const
{
    const QRectF place = pictureRect(pane);
    const double scale = zoom();
    const QRectF part =
        QRectF((QRectF(pane).topLeft() - place.topLeft()) / scale, QSizeF(pane.size()) / scale)
            .toAlignedRect() &
        picture.rect();
    if (part.isEmpty())
        return;
    painter.save();
    painter.setClipRect(pane, Qt::IntersectClip);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale * devicePixelRatioF() < 1);
    painter.drawImage(QRectF(place.topLeft() + part.topLeft() * scale, part.size() * scale),
                      picture, part);
    paintOutlines(painter, place);
    painter.restore();
}

/// A light and a dark line each, so that they are seen on any picture.
void CComparedPictures::paintOutlines(QPainter &painter, const QRectF &place) const
{
    const auto outline = [&](const QRect &box, const QColor &colour, double grown) {
        const QRectF frame(place.topLeft() + QPointF(box.topLeft()) * zoom(),
                           QSizeF(box.size()) * zoom());
        painter.setPen(QPen(QColor(255, 255, 255, 190), 1));
        painter.drawRect(frame.adjusted(-grown - 1, -grown - 1, grown + 1, grown + 1));
        painter.setPen(QPen(colour, 1));
        painter.drawRect(frame.adjusted(-grown, -grown, grown, grown));
    };
    painter.setBrush(Qt::NoBrush);
    for (const QRect &each : m_shown.places)
        outline(each, ChangedColour, 1.5);
    for (const QRect &each : {m_markBefore, m_markNow})
        if (!each.isNull())
            outline(each, ChosenColour, 3.5);
}

void CComparedPictures::setSwipe(double swipe)
{
    m_swipe = std::clamp(swipe, 0.0, 1.0);
    viewport()->update();
}

void CComparedPictures::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void CComparedPictures::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    const int turned = event->angleDelta().y();
    if (turned != 0 && !pictureSize().isEmpty())
        zoomBy(turned > 0 ? 1 : -1, event->position());
    event->accept();
}

void CComparedPictures::mouseMoveEvent(QMouseEvent *event)
{
    const bool isSwipe = mode() == Swipe && !(event->buttons() & Qt::MiddleButton);
    const QRectF place = pictureRect(panes().first());
    if (isSwipe && place.width() > 0) {
        setSwipe((event->localPos().x() - place.left()) / place.width());
    } else if (event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) {
        const QPoint by = event->pos() - m_grip;
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
    }
    m_grip = event->pos();
}

void CComparedPictures::mousePressEvent(QMouseEvent *event)
{
    m_grip = event->pos();
    mouseMoveEvent(event);
}

void CComparedPictures::keyPressEvent(QKeyEvent *event)
{
    const QPointF middle = QRectF(viewport()->rect()).center();
    const bool isLeft = event->key() == Qt::Key_Left;
    if (mode() == Swipe && (isLeft || event->key() == Qt::Key_Right))
        setSwipe(m_swipe + (isLeft ? -SwipeStep : SwipeStep));
    else if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)
        zoomBy(1, middle);
    else if (event->key() == Qt::Key_Minus)
        zoomBy(-1, middle);
    else if (event->key() == Qt::Key_1)
        zoomTo(1, middle);
    else if (event->key() == Qt::Key_0)
        fit();
    else
        QAbstractScrollArea::keyPressEvent(event);
}

void CComparedPictures::showEvent(QShowEvent *event)
{
    QAbstractScrollArea::showEvent(event);
    modeChanged();
}

void CComparedPictures::hideEvent(QHideEvent *event)
{
    QAbstractScrollArea::hideEvent(event);
    m_blink.stop();
}

void CComparedPictures::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CComparedPictures::retranslate()
{
    const QString texts[ModeCount] = {tr("Difference"),   tr("Before"), tr("Now"),
                                      tr("Side by side"), tr("Blink"),  tr("Swipe")};
    for (int mode = 0; mode < ModeCount; ++mode)
        m_modes->setItemText(mode, texts[mode]);
    m_modes->setToolTip(tr("How the page is shown before and now"));
    m_fit->setText(tr("Fit"));
    m_fit->setToolTip(tr("Show all of the page (0)"));
    m_whole->setText(tr("100 %"));
    m_whole->setToolTip(tr("Show a pixel for a pixel (1); Ctrl and the wheel, + and - zoom"));
    showZoom();
}
