#pragma once

#include "devkit/sourcesafe/openDatabase.h"

namespace velk::devkit::vss {

// A project or a file of an open database, or a file as it was at a version.
class VSSItem : public WithMembers<VSSItem, VssObject> {
public:
    VSSItem(std::shared_ptr<OpenDatabase> owner, Place where, int32_t at)
        : session(std::move(owner)), place(std::move(where)), version(at)
    {
    }
    static std::span<const Member<VSSItem>> members();

    // Where the item lies on the user's disk; empty when no working folder was set.
    std::wstring localSpec() const;
    // The argument when there is one, else the item's own local path; fails when it has none.
    std::wstring localPath(const std::wstring& argument) const;
    // The version that the item stands for: its own, or the newest.
    int32_t versionNumber() const;

    const std::shared_ptr<OpenDatabase> session;
    const Place place;

private:
    const int32_t version; // 0: whatever is the newest
};

variant itemVariant(const std::shared_ptr<OpenDatabase>& session, const Place& place, int32_t version = 0);

} // namespace velk::devkit::vss
