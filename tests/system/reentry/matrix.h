#pragma once

#include "../ide/ideRun.h"

#include <string>
#include <vector>

namespace velk::test {

// Runs of reentry_lives: a matrix of places in a life and of what happens there. A pair that leaves anything wrong or
// ends the program is one line of the result, and the next pair begins in a new process.
class MatrixRun : public IdeRun {
protected:
    MatrixRun();

    // An undisturbed life, told by its facts and "OK".
    std::vector<std::string> undisturbedLife(const std::wstring& how);
    // Goes through the pairs of a file; what is wrong, one line a pair: "PLACE ACTION: what". The lives begin as the
    // word behind the file says.
    std::vector<std::string> wrongPairs(const std::wstring& file, const std::wstring& beginning = {});

    int tried = 0;
    std::vector<std::string> missed; // those whose place the disturbed life did not come to
    int processes = 0;

private:
    // The pairs from this one on as far as one process comes; the number of the next, or -1 behind the last.
    int runFrom(const std::wstring& file, int number, const std::wstring& beginning, std::vector<std::string>& wrong);
    std::vector<std::string> said() const;
};

} // namespace velk::test
