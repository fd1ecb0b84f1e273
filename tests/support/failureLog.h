#pragma once

#include "base/boundary.h"

#include <string>
#include <utility>
#include <vector>

namespace velk::test {

// Keeps every failure that is reported while it lives, as "where: number".
class FailureLog {
public:
    FailureLog()
        : m_before(setFailureObserver([this](const Failure& failure) {
              lines.push_back(std::wstring(failure.where) + L": " + std::to_wstring(failure.error.number()));
              descriptions.push_back(failure.error.description());
          }))
    {
    }
    FailureLog(const FailureLog&) = delete;
    FailureLog& operator=(const FailureLog&) = delete;
    ~FailureLog() { setFailureObserver(std::move(m_before)); }

    std::vector<std::wstring> lines;
    std::vector<std::wstring> descriptions;

private:
    FailureObserver m_before;
};

} // namespace velk::test
