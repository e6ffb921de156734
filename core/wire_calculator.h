// Hangs the core's handlers on the events of the form Calculator.
#pragma once

#include "core/program.h"

namespace core {

void WireCalculator(Program& p);

}  // namespace core
