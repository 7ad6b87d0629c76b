#pragma once

#include "StandardScreen.h"

#include <QByteArray>

namespace bench {

/// A project document with two screens, which differ in their colours alone so that one drawn after
/// the other is never the same frame again. Each has `count` rectangles, discs and short texts.
QByteArray smallWidgets(int count);

/// The same for the standard screen as an author would build it of the library's widgets: a gauge,
/// a chart or a button is one widget each, not the lines that it is made of. Without the pictures
/// and the 200 dots, for which there is no widget; the list still has some 2,000 words.
QByteArray standardWidgets(const SStandardScreen &screen);

/// A project of so many screens for projects of any size: every fifth widget is of another kind,
/// some have texts of their own, as drawn projects have. The first screen has up to MostOnFirst of
/// them, the others share the rest.
QByteArray manyScreens(int widgets, int screens);
constexpr int MostOnFirst = 5000;
/// How many screens the table of sizes has for a number of widgets.
int screensFor(int widgets);

} // namespace bench
