#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QVector>

#include <cstddef>
#include <cstdint>

class CScreenModel;

/// What lay in the chip's graphics memory while a screen was drawn.
struct SGraphicsMemory
{
    /// A bitmap or picture; see EmuAsset.
    struct SAsset
    {
        QString file; ///< full path
        uint32_t format = 0;
        uint32_t width = 0;
        uint32_t height = 0;
        uint32_t stride = 0;
        uint32_t address = 0;
        uint32_t bytes = 0;
        uint32_t paletteAddress = 0;
        uint32_t paletteBytes = 0;
    };
    bool isKnown = false; ///< false when the emulator library does not tell it
    QByteArray bytes;     ///< from address 0 on
    QList<SAsset> assets; ///< by ascending addresses
};

/// A widget of the screen, as it was when the screen was drawn.
struct SExportedItem
{
    QString name;
    QString type;    ///< the kind's name in the widget library
    QString id;      ///< as text; empty when it has none
    quint32 tag = 0; ///< the id in the display list; 0: the list does not name it
    QString group;   ///< name of the group that it is a member of; empty when it is none
    QRectF bounds;   ///< what it covers, in pixels, before it is turned
    double turn = 0; ///< degrees clockwise about the middle of the bounds
};

/// What the render of one screen brought.
struct SScreenExport
{
    CScreenModel *screen = nullptr; ///< the project's; not followed here, it may be gone by now
    QString name;
    QString text;               ///< display list, one command a line
    QByteArray bytes;           ///< display list, little-endian words
    QImage frame;               ///< null unless frames were asked for
    size_t ramDl = 0;           ///< bytes that the whole list needs; 0 unless frames were asked for
    size_t ramG = 0;            ///< bytes that all assets need
    QStringList errors;         ///< of the render, and chipFindings
    QStringList chipFindings;   ///< what the chip cannot do
    SGraphicsMemory memory;     ///< unless frames were asked for, not known
    QList<SExportedItem> items; ///< front-most first; empty unless frames were asked for
    QVector<quint32> cutTexts;  ///< tags of items that have no room for one of their texts
};
