#pragma once

#include <QImage>
#include <QObject>

class QPixmap;

/// Small pictures of projects, for those who choose one: a file for each in the user's cache
/// folder, which may be emptied at any time. What lies there instead of a picture is passed over.
class CProjectPictures final : public QObject
{
    Q_OBJECT

public:
    static constexpr QSize Size{200, 125}; ///< pixels at a scale of 1, into which a picture fits
    static constexpr int MaxFiles = 40;    ///< the newest ones stay

    using QObject::QObject;

    /// In the background; a picture that cannot be written is none. `file`: of the project,
    /// absolute; without it or a frame nothing is kept.
    void keep(const QString &file, const QPixmap &frame);
    /// Twice as large as Size; null when there is none. For any thread.
    static QImage read(const QString &file);
    static QString pathOf(const QString &file);

Q_SIGNALS:
    void kept();
};
