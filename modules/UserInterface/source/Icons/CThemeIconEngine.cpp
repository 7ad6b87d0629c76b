#include "CThemeIconEngine.h"

#include "CThemeIcons.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>

namespace {

constexpr int renderedPixels[] = {16, 20, 24, 30, 32, 36, 40, 48};
constexpr int largestPixels = 48;

QString fileName(const QString &theme, int pixels, const QString &name)
{
    return QStringLiteral(":/icons/%1/%2/%3.png").arg(theme).arg(pixels).arg(name);
}

/// The rendering to use for a wanted size: the next larger one, since shrinking keeps strokes even.
int renderingFor(int pixels)
{
    for (const int rendered : renderedPixels) {
        if (rendered >= pixels)
            return rendered;
    }
    return largestPixels;
}

/// The ink of disabled icons: 3.4 to 3.7 : 1 on the theme's window colour.
QColor disabledInk(const QString &theme)
{
    if (theme == QStringLiteral("bright"))
        return {0x7d, 0x87, 0x92};
    return theme == QStringLiteral("light") ? QColor(0x5a, 0x5a, 0x5a) : QColor(0x98, 0x98, 0x98);
}

QPixmap draw(const QString &theme, const QString &name, int pixels, QIcon::Mode mode)
{
    QPixmap picture(fileName(theme, renderingFor(pixels), name));
    if (picture.isNull())
        return picture;
    if (picture.width() != pixels)
        picture = picture.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (mode == QIcon::Disabled) {
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), disabledInk(theme));
    }
    return picture;
}

/// In the upper right corner, with a gap around it that sets it off from the strokes.
void drawDot(QPixmap *picture, const QString &theme)
{
    const qreal side = picture->width();
    const QPointF centre(side * 0.78, side * 0.22);
    QPainter painter(picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setBrush(Qt::transparent);
    painter.drawEllipse(centre, side * 0.3, side * 0.3);
    painter.setBrush(theme == QStringLiteral("dark") ? QColor(0xf2, 0xb3, 0x3d)
                                                     : QColor(0x8a, 0x4b, 0x00));
    painter.drawEllipse(centre, side * 0.2, side * 0.2);
}

} // namespace

CThemeIconEngine::CThemeIconEngine(const QString &name, EMark mark) : m_name(name), m_mark(mark)
{
}

bool CThemeIconEngine::exists(const QString &name)
{
    return QFile::exists(fileName(CThemeIcons::theme(), largestPixels, name));
}

void CThemeIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
                             QIcon::State state)
{
    const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
    const QSize side = actualSize(rect.size(), mode, state);
    QPixmap picture = pixmap(side * ratio, mode, state);
    picture.setDevicePixelRatio(ratio);
    QRect target(QPoint(), side);
    target.moveCenter(rect.center());
    painter->drawPixmap(target, picture);
}

QPixmap CThemeIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State)
{
    const int pixels = std::min(size.width(), size.height());
    if (pixels <= 0)
        return {};
    const QString theme = CThemeIcons::theme();
    const bool isMarked = m_mark == EMark::Dot && mode != QIcon::Disabled;
    const QString key = QStringLiteral("kiv-icon %1 %2 %3 %4 %5")
                            .arg(theme)
                            .arg(pixels)
                            .arg(int(mode == QIcon::Disabled))
                            .arg(int(isMarked))
                            .arg(m_name);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = draw(theme, m_name, pixels, mode);
        if (isMarked)
            drawDot(&picture, theme);
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

QSize CThemeIconEngine::actualSize(const QSize &size, QIcon::Mode, QIcon::State)
{
    const int side = std::min(size.width(), size.height());
    return {side, side};
}

QList<QSize> CThemeIconEngine::availableSizes(QIcon::Mode, QIcon::State) const
{
    QList<QSize> sizes;
    for (const int pixels : renderedPixels)
        sizes << QSize(pixels, pixels);
    return sizes;
}
