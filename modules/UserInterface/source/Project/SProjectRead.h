#pragma once

#include "CProjectModel.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

/// What a file holds, read once for checking and opening it.
struct SProjectRead
{
    std::optional<QByteArray> bytes;        ///< none: it could not be read
    std::unique_ptr<CProjectModel> project; ///< null: it holds none
    QString reason;                         ///< of either

    /// In any thread.
    static SProjectRead of(const QString &path);
    /// What the bytes of the file hold; null, and a reason that names the file, when it is none.
    static std::unique_ptr<CProjectModel> projectIn(const QByteArray &bytes, const QString &path,
                                                    QString *reason);
};
