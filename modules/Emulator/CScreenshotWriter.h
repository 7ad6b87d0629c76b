#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>

/// Writes pictures of screens as PNG files into one folder and never over an existing file:
/// "Page 1.png", then "Page 1 (1).png", "Page 1 (2).png", … up to 10000, which is written over.
class CScreenshotWriter
{
public:
    static constexpr int MaxNumber = 10000;

    /// `folder` must exist.
    explicit CScreenshotWriter(const QString &folder);

    /// Writes one picture and gives its file's path. An empty picture makes an empty file. Nothing
    /// is written and the path is empty when the file cannot be opened; see skipped().
    QString write(const QString &screenName, const QImage &picture);
    /// What could not be written, a sentence each.
    QStringList skipped() const { return m_skipped; }

    /// The picture as a PNG file; the same pixels give the same bytes. Empty for an empty picture.
    static QByteArray toPng(QImage picture);

private:
    QString freePath(const QString &screenName) const;

    QString m_folder;
    QStringList m_skipped;
};
