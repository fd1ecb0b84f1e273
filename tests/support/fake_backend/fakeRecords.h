#pragma once

#include "backend/records.h"
#include "devkit/contract/wire.h"

namespace velk::test {

namespace wire = devkit::wire;

// Write a record as the Backend would, into strings with the room that the caller gave them.
void write(wire::trzText& target, const trzText& source);
void write(wire::trzSQLText& target, const trzSQLText& source);
void write(wire::trzADOText& target, const trzADOText& source);
void write(wire::trzConnectionDE& target, const trzConnectionDE& source);
void write(wire::trzCommandDE& target, const trzCommandDE& source);
void write(wire::trzProject& target, const trzProject& source);
void write(wire::trzConnection& target, const trzConnection& source);
void write(wire::trzProcedure& target, const trzProcedure& source);
void write(wire::trzFunction& target, const trzFunction& source);
void write(wire::trzTrigger& target, const trzTrigger& source);
void write(wire::trzTable& target, const trzTable& source);
void write(wire::trzView& target, const trzView& source);

} // namespace velk::test
