// SPDX-License-Identifier: MIT
#include "iwheelconsumer.h"

IWheelConsumer::~IWheelConsumer() = default;
