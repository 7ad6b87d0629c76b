#pragma once

#include <QString>

#include <cstdint>

/// Writes a project with its files into a folder that exists, and gives the path of the project;
/// empty when something could not be written. The same seed gives the same project.
/// Screens share some bitmaps and not others, in all formats of the chip, under names of which some
/// have equal content; there are pictures, photos and films, turned and overlapping, and items
/// without any. Every screen fits into the chip's RAM_G by itself; in two of three projects all of
/// them together do not, in some of these screens are filled to the last bytes.
QString generateProject(uint32_t seed, const QString &folder);
