#include "SnapRule.h"

#include <cmath>

void SnapRule::appendGridLines(QVector<Candidate> &candidates, double proposed, int spacing)
{
    const double before = std::floor(proposed / spacing) * spacing;
    candidates.append({before, nullptr});
    candidates.append({before + spacing, nullptr});
}

SnapRule::Candidate SnapRule::nearest(const QVector<Candidate> &candidates, double proposed)
{
    Candidate best = candidates.constFirst();
    double distance = std::abs(best.position - proposed);
    for (const Candidate &each : candidates) {
        if (distance == 0)
            break;
        const double itsDistance = std::abs(each.position - proposed);
        if (itsDistance < distance) {
            best = each;
            distance = itsDistance;
        }
    }
    return best;
}
