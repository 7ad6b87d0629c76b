#pragma once

#include <QString>
#include <QVector>

class CItemModel;

enum class ESeverity {
    Note,    ///< worth a look
    Warning, ///< somebody will see it on the device
    Error    ///< it will not be drawn as designed
};

/// The rules. Their ids (Rules.h) stand in project files and reports, so they stay.
enum class ERule {
    RenderError,
    MissingGlyph,
    Memory,
    ChipValue,
    MissingImage,
    ChangedImage,
    OutsideScreen,
    NoSize,
    Hidden,
    TouchSize,
    TouchOverlap,
    TextCut,
    Contrast,
    ScaledImage,
    SameImage,
    UnusedImage,
    DuplicateId,
    DuplicateName,
    Identifier,
};

/// Something that will go wrong on the device, or may.
struct SFinding
{
    ERule rule = ERule::RenderError;
    ESeverity severity = ESeverity::Warning;
    QString text;                       ///< a sentence in the user's language
    const CItemModel *screen = nullptr; ///< null: it concerns the project
    const CItemModel *item = nullptr;   ///< null: it concerns the screen as a whole
    QString property;                   ///< that is to be looked at; may be empty
    QString file;                       ///< that it concerns, absolute; may be empty
    QString subject; ///< what of the project it is about, where that is no screen and no item
    QString ignoredBecause; ///< somebody has said that it is right so; null otherwise
};

using Findings = QVector<SFinding>;
