#pragma once

// The records that are exchanged with the Backend, as the add-in sees them: wide texts, already cut at their
// end. Handles are the Backend's: kept and passed back, never interpreted; 0 names nothing that lives.
#include "backend/object_records.h"
#include "backend/payload_records.h"
