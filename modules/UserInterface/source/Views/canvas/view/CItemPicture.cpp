#include "CItemPicture.h"

#include "CEmulatorAdapter.h"
#include "CScreenModel.h"
#include "PropertyKey.h"

#include <algorithm>

CItemPicture::CItemPicture(QObject *parent) : QObject(parent)
{
    connect(CEmulatorAdapter::instance(), &CEmulatorAdapter::emulatorBackgroundFrameCallback, this,
            [this](bool, const argb8888 *pixels, uint32_t width, uint32_t height, void *observer) {
                if (observer != this)
                    return;
                const QImage frame(reinterpret_cast<const uchar *>(pixels), int(width), int(height),
                                   QImage::Format_RGB32);
                take(pixels ? frame.copy() : QImage());
            });
}

CItemPicture::~CItemPicture()
{
    giveUp();
}

void CItemPicture::ask(std::unique_ptr<CScreenModel> screen)
{
    giveUp();
    m_screen = std::move(screen);
    askOn("#000000");
}

void CItemPicture::giveUp()
{
    CEmulatorAdapter::instance()->withdraw(this);
    m_iterator.setRoot(nullptr);
    m_screen.reset();
    m_onBlack = QImage();
}

void CItemPicture::askOn(const char *ground)
{
    m_screen->setProperty(PropertyKey::Color, QString::fromLatin1(ground), CItemModel::Notify::No);
    m_iterator.setRoot(m_screen.get());
    CEmulatorAdapter::instance()->renderBackground(&m_iterator, this);
}

void CItemPicture::take(const QImage &frame)
{
    if (m_onBlack.isNull() && !frame.isNull()) {
        m_onBlack = frame;
        askOn("#ffffff");
        return;
    }
    const QImage picture = fromGrounds(m_onBlack, frame);
    giveUp();
    if (!picture.isNull())
        Q_EMIT drawn(picture);
}

QImage CItemPicture::fromGrounds(const QImage &black, const QImage &white)
{
    if (black.size() != white.size() || black.isNull())
        return {};
    QImage picture(black.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        const auto *dark = reinterpret_cast<const QRgb *>(black.constScanLine(y));
        const auto *light = reinterpret_cast<const QRgb *>(white.constScanLine(y));
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            // What is opaque is the same on both; on black a pixel is premultiplied already.
            const int through =
                std::max({qRed(light[x]) - qRed(dark[x]), qGreen(light[x]) - qGreen(dark[x]),
                          qBlue(light[x]) - qBlue(dark[x])});
            const int alpha = 255 - std::clamp(through, 0, 255);
            row[x] = qRgba(std::min(alpha, qRed(dark[x])), std::min(alpha, qGreen(dark[x])),
                           std::min(alpha, qBlue(dark[x])), alpha);
        }
    }
    return picture;
}
