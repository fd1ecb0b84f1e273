#pragma once

#include "doctor/facts.h"

namespace velk::test {

// What a machine on which all is right gives.
doctor::Facts healthyMachine();

} // namespace velk::test
