#pragma once

#include "CTestModel.h"

/// The render script of the benchmarks.
extern const char *const BenchScript;

/// An operator's screen of some 2,000 display-list words: buttons, gauges, bars, a plot, lamps and
/// labels, each kind with the dozen properties that kinds have.
void fillBenchScreen(CTestModel &model);
/// `count` widgets of all kinds in turn.
void fillBenchWidgets(CTestModel &model, int count);
/// 60 labels with figures, in a font in ROM or in an own one of the same file and size.
void fillBenchTexts(CTestModel &model, bool isInOwnFont);
