#pragma once

#include "CComparison.h"

#include <QColor>
#include <QCoreApplication>
#include <QHash>
#include <QString>

class CProjectModel;
class CWidgetLibraryModel;

/// Kinds, properties and values of compared projects as people read them, in their language.
class CChangeTexts
{
    Q_DECLARE_TR_FUNCTIONS(CChangeTexts)

public:
    CChangeTexts() = default; ///< knows no kind
    CChangeTexts(const CProjectModel &before, const CProjectModel &now);

    /// "Slider \"Volume\""
    QString name(const SItemState &item) const;
    /// Of a property of the item, or of the project when it is null.
    QString caption(const SItemState *item, const QString &key) const;
    /// `isBefore`: of the earlier project, which may have other fonts. A value that is not there is
    /// a dash.
    QString value(const SItemState *item, const QString &key, const QString &text,
                  bool isBefore) const;
    /// Invalid unless the property holds one.
    QColor colour(const SItemState *item, const QString &key, const QString &text) const;

private:
    using Fonts = QHash<int, QString>;
    static Fonts fontsOf(const CProjectModel &project);

    const CWidgetLibraryModel *m_library = nullptr; ///< lives as long as the program
    Fonts m_fontsBefore;
    Fonts m_fonts;
};
