#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QDomDocument>
#include <QString>

#include <optional>

/// Stands before every reader of XML: nothing reads a document that was not let through here.
/// Refuses what is not well-formed, not in an 8-bit encoding that holds ASCII, has a DOCTYPE (and
/// with it entities), or goes beyond the limits below. Takes time and memory in proportion to the
/// document's size.
/// Errors:  a text for people, with the line where there is one.
class CXmlGuard
{
    Q_DECLARE_TR_FUNCTIONS(CXmlGuard)

public:
    static constexpr qint64 MaxBytes = qint64{64} << 20;
    static constexpr int MaxDepth = 256;
    static constexpr int MaxValueLength =
        4 * 1024 * 1024; ///< of an attribute or a text, characters
    /// Well above any kind of widget; the stream reader compares each attribute with each.
    static constexpr int MaxAttributesOfElement = 512;
    static constexpr int MaxElements = 250000; ///< what they make in memory is many times the file
    static constexpr int MaxAttributes = 4000000;

    /// Empty when the document may be read, otherwise the reason why not.
    static QString check(const QByteArray &xml);

    /// The checked document, or nothing and the reason.
    static std::optional<QDomDocument> parse(const QByteArray &xml, QString *error = nullptr);

    /// The bytes of a regular file of at most MaxBytes, unchecked otherwise; or nothing and the
    /// reason.
    static std::optional<QByteArray> readFile(const QString &path, QString *error = nullptr);
};
