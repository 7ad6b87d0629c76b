#pragma once

#include <QString>
#include <QStringList>

/// What panel-export was asked for on its command line. Paths are as given: relative ones count
/// from the caller's directory.
struct CExportOptions
{
    enum class EParsed {
        Run,
        ShowText, ///< --help or --version: print `text` and succeed
        Wrong     ///< `text` says what is wrong
    };

    /// Reads the arguments; the first is the program's name. Needs the application object.
    EParsed parse(const QStringList &arguments);

    QString text; ///< for the caller to print, ended by a line break unless Wrong

    QString project;
    QString dlFile; ///< empty: not wanted, as all below
    QString binFile;
    QString pngFolder;
    QString packageFolder;
    QString ramGFolder;
    QString reportFile;  ///< "-" is the standard output
    QStringList screens; ///< names; empty: all screens
    bool strict = false;

    bool reportsToStdout() const { return reportFile == QLatin1String("-"); }
    /// Whether an output is the standard output, so that messages must go elsewhere.
    bool takesStdout() const;

private:
    EParsed wrong(const QString &message);
    QString pathClash() const;
};
