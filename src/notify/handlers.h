#pragma once

#include "backend/records.h"
#include "model/IntegrationMgr.h"

namespace velk {

// One handler for each kind of notification. What they throw is told to the user as the kind demands; a record that
// cannot be fetched counts as a failure, too.
void handleText(const IntegrationMgr& manager, const trzNotify& notification);
void handleSQLText(const IntegrationMgr& manager, const trzNotify& notification);
void handleADOText(const IntegrationMgr& manager, const trzNotify& notification);
void handleFolderContents(const IntegrationMgr& manager, const trzNotify& notification);
void handleObjectChanged(const IntegrationMgr& manager, const trzNotify& notification);
void handleObjectRemoved(const IntegrationMgr& manager, const trzNotify& notification);
void handleObjectAdded(const IntegrationMgr& manager, const trzNotify& notification);
void handleConnectionDE(const IntegrationMgr& manager, const trzNotify& notification);
void handleCommandDE(const IntegrationMgr& manager, const trzNotify& notification);

} // namespace velk
