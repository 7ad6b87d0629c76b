#pragma once

#include "SSnapped.h"
#include "SnapKinds.h"

#include <array>
#include <optional>

/// Snapping along one axis. For the other one, whatever comes in and goes out is transposed; here
/// all is told as from left to right: lines stand upright, neighbours lie beside each other.
class CSnapAxis
{
public:
    enum ELine { First, Middle, Last, LineCount };
    using Lines = std::array<double, LineCount>; ///< both edges and the middle
    using Mask = std::array<bool, LineCount>;

    /// Where a line of what is dragged may come to lie.
    struct SCandidate
    {
        ELine line;
        double at;
        double slack; ///< how far off it may stay, since positions are whole numbers
    };
    /// What is near a place.
    struct STarget
    {
        double at;
        int item; ///< its index, or Page or Guide
    };

    CSnapAxis(QVector<QRectF> items, const QRectF &page, const QVector<double> &guides,
              SnapKinds kinds);

    static Lines linesOf(const QRectF &frame);
    /// Those at most `tolerance` from the lines of the frame, nearest first.
    QVector<SCandidate> candidates(const QRectF &frame, double tolerance) const;
    /// Adds what the frame is in line with. Only lines of the mask count. `landed`: what has been
    /// snapped to, which counts also when whole numbers do not allow to be there exactly.
    void describe(const QRectF &frame, const Mask &mask, const std::optional<SCandidate> &landed,
                  SSnapped &result) const;

private:
    struct SBeside; // neighbours on one side
    void addTargets(const QRectF &rect, int item);
    void addGapCandidates(const QRectF &frame, double tolerance, QVector<SCandidate> &found) const;
    QVector<int> on(double at) const;
    void describeAt(double at, const QRectF &frame, SSnapped &result) const;
    void describeGaps(const QRectF &frame, SSnapped &result) const;
    SBeside beside(const QRectF &frame, bool isBefore, double overlap) const;

    QVector<QRectF> m_items;
    QRectF m_page;
    bool m_snapsToGaps;
    QVector<STarget> m_targets; ///< in the order of their places
};
