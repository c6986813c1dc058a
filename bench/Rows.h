// SPDX-License-Identifier: MIT
#pragma once

#include "bench/Measurement.h"

#include <QString>

#include <vector>

/// One line of the speed table.
struct Row
{
    const char *name;
    const char *what;
    double limit; ///< more than this is a failure
    double aim;   ///< this or less is what we want
    Measurement (*measure)();
};

/// The option by which this program measures the row that it is followed by, alone, and prints that as
/// text.
inline const QString MeasureOption = QStringLiteral("--measure");

/// All lines, in the order in which they are measured and printed.
const std::vector<Row> &rows();

// How each is measured, in the file that is named.

// DialRows.cpp
Measurement dialRefresh();
Measurement dialAlpha();
Measurement dialUnchanged();
Measurement dialSameRow();

// MeterRows.cpp
Measurement meterReading();
Measurement metersPage();
Measurement metersFifth();
Measurement metersNone();
Measurement controlsPage();
Measurement controlsPageUnderX();
/// On a screen scaled by so many per cent, with pictures made for 100.
Measurement controlsPageAt(int percent);
Measurement translucentPageAt(int percent);
Measurement dialSiblings();
Measurement bridgeAt150();

// ConstructionRows.cpp
Measurement dialConstruction();

// FootprintRows.cpp
Measurement dialMemory();
Measurement dialMemoryGrowth();

// DeliveryRows.cpp
Measurement producerCost();
Measurement deliveryCost();
Measurement bareProducerCost();
Measurement bareDeliveryCost();

// GridRows.cpp
Measurement gridCell();
Measurement gridView();
Measurement gridCursor();
Measurement gridCache();

// ListRows.cpp
Measurement listSelection();
Measurement listPaging();
Measurement listSorting();

// FloodRows.cpp
Measurement floodTime();
Measurement floodLosses();

// SceneRows.cpp
Measurement sceneStore();
Measurement sceneRecall();
Measurement sceneWrites();

// ResponseRows.cpp
Measurement responseCurve();
Measurement responseCall();
Measurement responseOneBand();
