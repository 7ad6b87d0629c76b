#pragma once

#include "CBatchLine.h"

/// A time of day, hours, minutes and seconds.
class CBatchTime final : public CBatchLine
{
    Q_OBJECT

public:
    using CBatchLine::CBatchLine;

protected:
    QString take(const QString &text) override;
};
