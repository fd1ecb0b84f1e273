#pragma once

#include "devkit/sourcesafe/openDatabase.h"

namespace velk::devkit::vss {

// A collection of items as they are now: Count, Item (by number from 1 on, or by name where there are names), and an
// enumeration.
variant collectionOf(std::vector<variant> items, std::vector<std::wstring> names = {});

// A file's versions, the newest first: each with VersionNumber, Username, Comment, and VSSItem, the file as it was.
variant versionsOf(const std::shared_ptr<OpenDatabase>& session, const Place& file);

} // namespace velk::devkit::vss
