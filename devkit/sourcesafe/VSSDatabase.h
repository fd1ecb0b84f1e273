#pragma once

#include "devkit/sourcesafe/openDatabase.h"

namespace velk::devkit::vss {

// The object behind the ProgID: a database that is opened with a user's credentials, and the way to its items.
class VSSDatabase : public WithMembers<VSSDatabase, VssObject> {
public:
    static std::span<const Member<VSSDatabase>> members();

    // Fails with the reason and keeps what was open before.
    void open(const std::wstring& ini, const std::wstring& user, const std::wstring& password);
    // Fails while nothing is open.
    const std::shared_ptr<OpenDatabase>& session() const;

private:
    std::shared_ptr<OpenDatabase> m_session;
};

} // namespace velk::devkit::vss
