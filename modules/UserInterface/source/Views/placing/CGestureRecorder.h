#pragma once

#include "CStartValues.h"

/// What a gesture has changed since it began: to be put back, or to be recorded. The items must
/// outlive the recording.
class CGestureRecorder
{
public:
    /// Remembers those of the properties that the items have; groups come before their members.
    void begin(const QVector<CItemModel *> &items, const QStringList &keys);
    bool isRecording() const { return !m_starts.isEmpty(); }
    QVector<CItemModel *> changedItems() const;

    // Each ends the recording.
    /// Puts everything back exactly as it was.
    void restore();
    /// Records what has changed as one macro; without a text, as single commands.
    void record(const QString &macroText);

private:
    QVector<CStartValues> m_starts;
};
