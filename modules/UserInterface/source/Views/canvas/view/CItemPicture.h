#pragma once

#include "CModelIterator.h"

#include <QImage>
#include <QMetaObject>
#include <QObject>

#include <memory>

class CItemModel;
class CScreenModel;

/// A picture of items that are in no project yet, as the chip draws them, transparent where it
/// draws nothing. The emulator makes it in the background, once on black and once on white, which
/// tells how much of the ground is seen through each pixel.
class CItemPicture final : public QObject
{
    Q_OBJECT

public:
    explicit CItemPicture(QObject *parent = nullptr);
    ~CItemPicture() override;

    /// Gives up what was asked for before. The screen's project must be there until the answer, or
    /// giveUp() be called.
    void ask(std::unique_ptr<CScreenModel> screen);
    void giveUp();

    /// From the same frame on black and on white; null when they differ in size.
    static QImage fromGrounds(const QImage &black, const QImage &white);

Q_SIGNALS:
    void drawn(const QImage &picture); ///< of the page's size, premultiplied

private:
    void askOn(const char *ground);
    void take(const QImage &frame);

    std::unique_ptr<CScreenModel> m_screen; ///< while an answer is awaited
    CModelIterator m_iterator;
    QImage m_onBlack;
    QMetaObject::Connection m_answer;
};
