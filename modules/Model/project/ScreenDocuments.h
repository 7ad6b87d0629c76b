#pragma once

#include "SItemElement.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

class CItemModel;
class CProjectModel;
class CScreenModel;

/// Documents that hold screens or widgets outside a project: the clipboard's and page files.
namespace ScreenDocuments {
extern const QString CopiedScreensMime; ///< "screen-copy"
extern const QString CopiedItemsMime;   ///< "widget-copy"

// The documents as XML. Nothing, and the reason, when they could not be read back.
QByteArray ofCopiedScreens(const QVector<const CScreenModel *> &screens, QString *error = nullptr);
QByteArray ofPageFile(const QVector<const CScreenModel *> &screens, QString *error = nullptr);
QByteArray ofCopiedItems(const QVector<const CItemModel *> &items, QString *error = nullptr);

// The root elements of such documents; their child elements are the screens or items. Nothing
// when the bytes are no such document; `error` then says why.
std::optional<SItemElement> copiedScreens(const QByteArray &xml, QString *error = nullptr);
std::optional<SItemElement> pageFile(const QByteArray &xml, QString *error = nullptr);
std::optional<SItemElement> copiedItems(const QByteArray &xml, QString *error = nullptr);

/// Empty when a project can be saved with the screens in it that a page file's or a clipboard
/// element holds, otherwise the reason: they gain what their kinds have and the document leaves
/// out, so what may be read can become more than may be written.
QString savingRefusal(const SItemElement &screens, CProjectModel *project);
/// The same for a screen as it would stand in the project.
QString savingRefusal(const CScreenModel &screen);

/// What goes on the clipboard for a document: its text as one streamed string.
QByteArray toClipboard(const QByteArray &xml);
/// The document of clipboard data; empty when the data is not one string.
QByteArray fromClipboard(const QByteArray &data);
} // namespace ScreenDocuments
