// SPDX-License-Identifier: MIT
#include "pseudomarkerlist.h"

PseudoMarkerList::PseudoMarkerList(QWidget * parent, char const * name) : MarkerList(parent, name) {}

PseudoMarkerList::~PseudoMarkerList() = default;

double PseudoMarkerList::PixelToValue(int /*direction*/, int /*pixel*/) { return -1.0; }

int PseudoMarkerList::ValueToPixel(int /*direction*/, double /*value*/) { return -1; }

void PseudoMarkerList::RepairDrawing() {}

void PseudoMarkerList::GetCurrentStartStop(int /*direction*/, double & /*start*/, double & /*stop*/) {}
