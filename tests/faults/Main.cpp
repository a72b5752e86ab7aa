// Every k-th call of the system fails, with every error, once and from then on; and the process is killed before every call
// and at random times. After each the files must be the old or the new ones byte for byte. From the root of the sources:
//   xmlconfig_faults errors          the whole matrix of errors
//   xmlconfig_faults kills [COUNT]   a kill before every call, and COUNT at random times (2000)

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <map>
#include <random>
#include <thread>

#include "store/CorvaneException.h"
#include "tests/faults/FailingCalls.h"
#include "tests/faults/Operations.h"

namespace faults {

namespace {

struct Error {
    const char* name;
    int code;
};
constexpr Error errors[] = {{"ENOSPC", ENOSPC}, {"EIO", EIO},     {"EINTR", EINTR},
                            {"EDQUOT", EDQUOT}, {"EROFS", EROFS}, {"EACCES", EACCES}};

int broken = 0;

/// What nobody can help, each with the number of cases.
std::map<std::string, int> beyondHelp;

void report(const std::string& operation, const std::string& what, const std::string& fault) {
    ++broken;
    std::cout << "BROKEN: " << operation << ", " << what << ": " << fault << '\n';
}

/// How an operation ended.
enum class End { Done, Told, Wrong };

End runPlanned(const Operation& operation, Scene& scene, Plan plan) {
    plan.admitsNewFiles = operation.admitsNewFiles;
    arm(plan);
    End end = End::Done;
    try {
        operation.run(scene);
    } catch (const CorvaneExceptionBase& error) {
        end = error.getMessage().empty() ? End::Wrong : End::Told;
    } catch (...) {
        end = End::Wrong;
    }
    disarm();
    return end;
}

/// Runs the operation again without a fault: it must succeed and leave nothing of the failed run. A file that the first try
/// made refuses an upgrade to it, as it must.
std::string nextTime(const Operation& operation, Scene& scene) {
    const bool isThereAlready = operation.name == "upgrade to another file" && scene.folder.has(L"new.skorrax");
    const bool isUpgraded =
        operation.name == "upgrade a file, with its backup" && !scene.has(L"hall.skorrax", scene.oldText());
    if (isThereAlready || isUpgraded) return {};
    if (runPlanned(operation, scene, {}) != End::Done) return "the next one fails";
    const std::string fault = operation.check(scene, false);
    return fault.empty() ? "" : "after the next one: " + fault;
}

/// What each call of the operation is when nothing fails.
std::vector<Count> callsOf(const Operation& operation) {
    Scene scene(operation.oldText);
    if (operation.prepare) operation.prepare(scene);
    const End end = runPlanned(operation, scene, {});
    const std::string fault = end == End::Done ? operation.check(scene, false) : "it fails without a fault";
    if (!fault.empty()) report(operation.name, "nothing failing", fault);
    return counts();
}

struct Tally {
    int cases = 0;
    int done = 0;
    int told = 0;
};

/// Where no file can be opened or looked at any more a backup stays, because nobody can tell whether the file is as it was.
bool isBeyondHelp(const Plan& plan, const std::string& fault) {
    return plan.isLasting && (plan.function == "open" || plan.function == "fstat") && fault == leftBackup;
}

void tryOne(const Operation& operation, const Plan& plan, const char* errorName, Tally& tally) {
    Scene scene(operation.oldText);
    if (operation.prepare) operation.prepare(scene);
    const End end = runPlanned(operation, scene, plan);
    ++tally.cases;
    ++(end == End::Done ? tally.done : tally.told);
    const std::string what =
        plan.function + " number " + std::to_string(plan.call) + (plan.isLasting ? " and later" : "") + ": " + errorName;
    if (end == End::Wrong) return report(operation.name, what, "no error of the library's own was told");
    std::string fault = operation.check(scene, end == End::Told);
    if (fault.empty()) fault = nextTime(operation, scene);
    if (fault.empty()) return;
    if (isBeyondHelp(plan, fault)) {
        ++beyondHelp[operation.name + ", " + plan.function + " fails for good: " + fault];
    } else {
        report(operation.name, what, fault);
    }
}

/// Without those that need a superuser where there is none.
std::vector<Operation> possibleOperations() {
    std::vector<Operation> possible;
    for (const Operation& operation : operations()) {
        const bool isPossible = !operation.isOfAnother || ::geteuid() == 0;
        if (isPossible) possible.push_back(operation);
        if (!isPossible) std::cout << operation.name << ": left out, needs the superuser\n";
    }
    return possible;
}

int runErrors() {
    for (const Operation& operation : possibleOperations()) {
        std::map<std::string, Tally> tallies;
        for (const Count& count : callsOf(operation))
            for (int call = 1; call <= count.calls; ++call)
                for (const Error& error : errors)
                    for (const bool isLasting : {false, true}) {
                        if (isLasting && error.code == EINTR) continue;  // an interruption is over when it is told
                        tryOne(operation, {count.function, call, error.code, isLasting}, error.name,
                               tallies[count.function]);
                    }
        std::cout << operation.name << ":\n";
        for (const auto& [function, tally] : tallies)
            std::cout << "  " << function << ": " << tally.cases << " faults, " << tally.done << " done all the same, "
                      << tally.told << " told\n";
    }
    std::cout << "beyond help:\n";
    for (const auto& [what, cases] : beyondHelp) std::cout << "  " << what << " (" << cases << " faults)\n";
    return broken;
}

/// Runs the operation in a child that dies; true when it was killed.
template <typename WhileItRuns>
bool runKilled(const Operation& operation, Scene& scene, const Plan& plan, WhileItRuns&& whileItRuns) {
    const pid_t child = ::fork();
    if (child == 0) {
        for (bool isFirst = true; isFirst || plan.killBefore == 0; isFirst = false) runPlanned(operation, scene, plan);
        ::_exit(EXIT_SUCCESS);
    }
    whileItRuns(child);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

struct KillTally {
    int kills = 0;
    int newFiles = 0;
    int backups = 0;
};

/// The child's document is gone with it: only what the folder holds counts.
void checkKilled(const Operation& operation, Scene& scene, const std::string& what, KillTally& tally) {
    ++tally.kills;
    std::string fault = operation.check(scene, true);
    if (fault.rfind("a stray file: .saving-", 0) == 0) {
        ++tally.newFiles;
        fault.clear();
    } else if (fault == leftBackup) {
        ++tally.backups;
        fault.clear();
    }
    if (fault.empty()) fault = nextTime(operation, scene);
    if (!fault.empty()) report(operation.name, what, fault);
}

void tell(const std::string& what, const KillTally& tally) {
    std::cout << what << ": a new file was left " << tally.newFiles << " times, until the next save";
    if (tally.backups > 0) std::cout << "; the backup of a file that is not upgraded yet " << tally.backups << " times";
    std::cout << '\n';
}

void killEverywhere(const Operation& operation) {
    KillTally tally;
    for (int call = 1;; ++call) {
        Scene scene(operation.oldText);
        if (operation.prepare) operation.prepare(scene);
        Plan plan;
        plan.killBefore = call;
        if (!runKilled(operation, scene, plan, [](pid_t) {})) break;
        checkKilled(operation, scene, "killed before call " + std::to_string(call), tally);
    }
    tell(operation.name + ", killed before each of " + std::to_string(tally.kills) + " calls", tally);
}

void killAtRandom(const std::vector<Operation>& all, int count) {
    std::mt19937 random(20190311);
    KillTally tally;
    for (int i = 0; i < count; ++i) {
        const Operation& operation = all[random() % all.size()];
        Scene scene(operation.oldText);
        if (operation.prepare) operation.prepare(scene);
        const std::chrono::microseconds time(random() % 8000);
        const auto killLater = [time](pid_t child) {
            std::this_thread::sleep_for(time);
            ::kill(child, SIGKILL);
        };
        runKilled(operation, scene, {}, killLater);
        checkKilled(operation, scene, "killed after " + std::to_string(time.count()) + " microseconds", tally);
    }
    tell("killed at " + std::to_string(tally.kills) + " random times", tally);
}

int runKills(int count) {
    std::vector<Operation> atomic = possibleOperations();
    atomic.erase(std::remove_if(atomic.begin(), atomic.end(), [](const Operation& one) { return !one.isAtomic; }),
                 atomic.end());
    for (const Operation& operation : atomic) killEverywhere(operation);
    killAtRandom(atomic, count);
    return broken;
}

}  // namespace

}  // namespace faults

int main(int argumentCount, char** arguments) {
    const std::string what = argumentCount > 1 ? arguments[1] : "";
    const int count = argumentCount > 2 ? std::atoi(arguments[2]) : 2000;
    if (what != "errors" && what != "kills") return 2;
    const int broken = what == "errors" ? faults::runErrors() : faults::runKills(count);
    std::cout << broken << " broken promises\n";
    return broken == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
