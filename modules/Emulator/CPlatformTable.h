#pragma once

#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

#include <cstdint>

/// The platforms (chip models) that a project can target, and what each of them decides.
/// Names are compared case-sensitively. Nothing fails: a name that is not in the table gets the
/// answers stated at each function.
/// Threads: immutable once built; may be read from any thread.
class CPlatformTable
{
public:
    CPlatformTable();

    /// All platforms, in the order in which they are offered.
    QStringList platforms() const;
    bool isKnown(const QString &platform) const;
    /// Screen sizes in pixels, in the order in which they are offered; empty for an unknown name.
    QList<QSize> offeredSizes(const QString &platform) const;
    /// Upper bounds of a custom width and height in pixels; 0 x 0 for an unknown name.
    QSize largestSize(const QString &platform) const;
    /// The chip codes of all platforms, each once.
    QVector<uint32_t> chipCodes() const;

    /// "480 x 272"
    static QString sizeText(const QSize &size);
    /// The code with which the emulator is started: "QX110" gives 0x110. A name that does not
    /// start with "QX1" gives 0x100, one that goes on with anything but hexadecimal digits 0.
    static uint32_t chipCode(const QString &platform);
    /// Bytes of graphics memory that the assets of one screen may use: 1 MiB for names that contain
    /// "QX11", otherwise 256 KiB.
    static uint32_t ramGBudget(const QString &platform);
    /// Bytes of display-list memory that one screen may use: 32 KiB where ramGBudget() is 1 MiB,
    /// otherwise 8 KiB.
    static uint32_t ramDlBudget(const QString &platform);

private:
    struct SPlatform
    {
        QString name;
        QList<QSize> offered;
        QSize largest;
    };
    const SPlatform *find(const QString &platform) const;

    QList<SPlatform> m_platforms;
};
