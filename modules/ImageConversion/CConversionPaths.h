#pragma once

#include <QString>

/// Where a conversion of one source file puts its files, and what they are called.
class CConversionPaths
{
public:
    /// `convertedImages` is the project's folder of converted images.
    CConversionPaths(const QString &convertedImages, const QString &source);

    /// A raw source is only copied; only the suffix "raw", exactly, makes it one.
    bool isRaw() const { return m_suffix == QLatin1String("raw"); }
    const QString &suffix() const { return m_suffix; }
    const QString &fileName() const { return m_fileName; } ///< of the source

    /// The project's folder: nothing is written outside of it.
    QString projectFolder() const;
    /// Folder for files of this format; of a raw source for any format.
    QString folder(int formatCode) const;
    /// Base name that the files of this format begin with. The palette tools keep only what stands
    /// before the first dot of a name, the others what stands before the last.
    QString baseName(int formatCode) const;
    /// The file that a conversion must leave.
    QString output(int formatCode) const;
    /// The quantised image that the palette splitter is given.
    QString quantised() const;

private:
    QString m_root;
    QString m_fileName;
    QString m_baseName;
    QString m_completeBaseName;
    QString m_suffix;
};
