#pragma once

#include <QByteArray>

/// Takes an arbitrary page file, page clipboard or widget clipboard into a small project and gives
/// what is wrong, or an empty text. A refused document changes nothing and records no step; what is
/// taken is one step that can be undone and redone byte for byte, drawn, saved and read back.
/// A project file and a widget library are read only: what is accepted can be saved and read back.
/// Input: a letter (D project file, L widget library, F page file, P copied screens, W copied
/// widgets; p and w the same as bare clipboard bytes), then the document. The program's widget
/// library must be loaded.
QByteArray checkDocument(const QByteArray &input);
