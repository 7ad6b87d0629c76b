#pragma once

#include "CGestureRecorder.h"

#include <QPointF>
#include <QString>

/// Where the pointer is during a gesture.
struct SGesturePointer
{
    QPointF place;     ///< scene units
    int travelled = 0; ///< screen pixels from the press, across plus down
    Qt::KeyboardModifiers modifiers;
};

/// A press of the left button on the canvas and all that follows from it until the release. The
/// scene holds the only one there is. Gestures change the model live, and either commit() or
/// cancel() ends that; one that is just deleted leaves the model as it is.
/// The views and items that a gesture knows must outlive it.
class CGesture
{
public:
    virtual ~CGesture() = default;
    Q_DISABLE_COPY(CGesture)

    /// At the press: everything later is worked out from the state of now.
    virtual void start(const SGesturePointer &press) = 0;
    /// The pointer has moved. What the user is told about it, or nothing.
    virtual QString update(const SGesturePointer &pointer) = 0;
    /// At the release: records what has changed as one step.
    virtual void commit() = 0;
    /// Puts everything back. Moves until the release change nothing then.
    virtual void cancel() = 0;

    /// The model is, or may be, changed and will be until commit() or cancel().
    bool isUnderWay() const { return m_recorder.isRecording(); }
    /// Whether a rubber band that is drawn during it leaves out locked items.
    virtual bool leavesOutLocked() const { return false; }

protected:
    CGesture() = default;

    CGestureRecorder m_recorder;
};
