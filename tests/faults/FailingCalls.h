#pragma once

#include <string>
#include <vector>

/// The calls of the system that this program's own code makes, of which one can be made to fail. The program defines the
/// functions of the C library itself and passes them on.
namespace faults {

/// How the calls behave between arm() and disarm(); those outside are neither counted nor disturbed.
struct Plan {
    std::string function;        ///< the one that fails; empty: none fails, all are counted
    int call = 0;                ///< which call of it, from 1
    int error = 0;               ///< what errno says then
    bool isLasting = false;      ///< all later calls of it fail too
    bool admitsNewFiles = true;  ///< false: the folder admits no file beside the target (EACCES)
    int killBefore = 0;          ///< the process is killed before this call of all, from 1
};

void arm(const Plan& plan);
void disarm();

/// The functions in the order of their first call since arm(), and how often each was called.
struct Count {
    std::string function;
    int calls = 0;
};
std::vector<Count> counts();
int allCalls();

}  // namespace faults
