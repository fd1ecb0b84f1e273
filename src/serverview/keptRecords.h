#pragma once

#include "backend/records.h"
#include "backend/wire_copy.h"

#include <memory>
#include <tuple>
#include <utility>

namespace velk {

// A record of each kind of objects that a view keeps for one fetch after the other: its texts have their memory
// already.
class KeptRecords {
    template <class Record>
    struct Kept {
        Record record;
        bool isTaken = false;
    };

public:
    // A record as new for one fetch: the kept one, unless there is none or somebody has it. The view may go meanwhile.
    template <class Record>
    class Taken {
    public:
        explicit Taken(std::shared_ptr<KeptRecords> records) noexcept : m_records(std::move(records))
        {
            if (!m_records || std::exchange(kept().isTaken, true))
                m_records.reset();
            else
                makeAsNew(kept().record);
        }
        Taken(const Taken&) = delete;
        Taken& operator=(const Taken&) = delete;
        ~Taken()
        {
            if (m_records)
                kept().isTaken = false;
        }
        Record& get() noexcept { return m_records ? kept().record : m_own; }

    private:
        Kept<Record>& kept() noexcept { return std::get<Kept<Record>>(m_records->m_kept); }

        std::shared_ptr<KeptRecords> m_records; // null: the call has its own record
        Record m_own;
    };

private:
    std::tuple<Kept<trzProcedure>, Kept<trzFunction>, Kept<trzTrigger>, Kept<trzTable>, Kept<trzView>> m_kept;
};

} // namespace velk
