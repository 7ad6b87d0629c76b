#pragma once

#include <QString>
#include <QVector>

struct SItemState;

/// What makes one state of a project another one. Names and values are those of project documents.
/// Items are those of the two states and live as long as these.
struct SValueChange
{
    QString key;
    QString before; ///< null when there was none, as the next
    QString after;
};

struct SItemChange
{
    enum class EKind {
        Added,
        Removed,
        Moved, ///< nothing but its coordinates is another
        Changed
    };
    EKind kind = EKind::Changed;
    const SItemState *before = nullptr; ///< null when it was added
    const SItemState *after = nullptr;  ///< null when it was removed
    QVector<SValueChange> values;       ///< in the order of documents
    QString screenBefore;               ///< it comes from another screen, now called so
    bool isRegrouped = false;           ///< it came into a group, or left one
    bool isReordered = false;           ///< it lies before or behind others than it did

    const SItemState &any() const { return after ? *after : *before; }
};

struct SScreenChange
{
    enum class EKind { Added, Removed, Changed };
    EKind kind = EKind::Changed;
    const SItemState *before = nullptr;
    const SItemState *after = nullptr;
    QVector<SValueChange> values; ///< of the screen itself; its name too, when it was renamed
    bool isReordered = false;
    QVector<SItemChange> items; ///< those that are there, front ones first, then the removed ones

    const SItemState &any() const { return after ? *after : *before; }
};

struct SScreenPair
{
    const SItemState *before;
    const SItemState *after;
};

struct SProjectChanges
{
    QVector<SValueChange> values;   ///< of the project, and "font <handle> <attribute>"
    QVector<SScreenChange> screens; ///< those that changed, in their order, then the removed ones
    QVector<SScreenPair> pairs;     ///< the screens that are in both, changed or not

    bool isEmpty() const { return values.isEmpty() && screens.isEmpty(); }
};
