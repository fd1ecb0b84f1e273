#pragma once

namespace velk::test {

// While it lives, operator new of this program gives memory so many times on this thread, and then none any more.
class OutOfMemory {
public:
    explicit OutOfMemory(int given = 0);
    OutOfMemory(const OutOfMemory&) = delete;
    OutOfMemory& operator=(const OutOfMemory&) = delete;
    ~OutOfMemory();

    // Whether anybody was told that there is none.
    bool wasFelt() const;
};

} // namespace velk::test
