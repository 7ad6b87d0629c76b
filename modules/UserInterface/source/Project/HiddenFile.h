#pragma once

class QString;

/// Marks a file as hidden where a leading dot of its name does not do that by itself.
void hideFile(const QString &path);
