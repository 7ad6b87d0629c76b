#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

/// Renders SVG drawings into a folder and keeps the list of resources made from them.
///
/// Resource names, NAME being the file name of the drawing without ".svg":
///   :/icons/THEME/PX/NAME.png        action icons, PX pixels square, THEME "dark" or "light"
///   :/images/NAME.png and @2x        the dark variant under its plain name
///   :/controls/THEME/NAME.png, @2x   small marks for the style sheets; NAME-disabled beside it
///   :/icons/app/PX.png               the program's own mark, in its own colours
///
/// Errors: every call gives an error text, empty when all went well; the first error ends the run.
class CIconSet
{
public:
    explicit CIconSet(const QString &outputFolder);

    QString addIcon(const QString &svgFile);
    QString addControl(const QString &svgFile);
    QString addApplicationMark(const QString &svgFile);

    /// Writes the resource list; files are named relative to its folder.
    QString writeResourceList(const QString &fileName) const;

private:
    QString render(const QByteArray &svg, int pixels, const QStringList &resourceNames);

    QString m_outputFolder;
    QList<QPair<QString, QString>> m_resources; ///< resource name, file below m_outputFolder
};
