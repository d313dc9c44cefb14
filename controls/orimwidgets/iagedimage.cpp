// SPDX-License-Identifier: MIT
#include "iagedimage.h"

IAgedImageUpdate::~IAgedImageUpdate() = default;

IColorServer::~IColorServer() = default;
