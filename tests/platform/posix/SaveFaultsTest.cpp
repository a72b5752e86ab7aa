#include <cerrno>

#include <fcntl.h>

#include "tests/platform/posix/ReplaceFileSupport.h"
#include "tests/support/posix/SystemCalls.h"

namespace replacetests {

namespace {

constexpr int faults[] = {EIO, ENOSPC, EDQUOT, EACCES, EPERM, EROFS, EINTR};

/// Lets one call fail, the k-th of all.
class OneFault {
public:
    OneFault(int number, int error, SystemCallWatch::Answer other)
        : m_watch([this, number, error, other](const SystemCall& call) {
              if (++m_seen != number) return other(call);
              m_failed = call.name;
              return error;
          }) {}
    bool hasHappened() const { return !m_failed.empty(); }
    const std::string& failed() const { return m_failed; }

private:
    int m_seen = 0;
    std::string m_failed;
    SystemCallWatch m_watch;
};

int nothing(const SystemCall&) { return 0; }
int noNameless(const SystemCall& call) {
    return call.name == "open" && (call.flags & O_TMPFILE) == O_TMPFILE ? EOPNOTSUPP : 0;
}
int noRename(const SystemCall& call) { return call.name == "rename" ? EBUSY : 0; }

}  // namespace

class SaveFaults : public ReplaceFile {
protected:
    /// Every k-th call fails in every way while `act` works; `check` looks at what stands then,
    /// given what was told and what had failed.
    template <typename Act, typename Check>
    void failEachCall(SystemCallWatch::Answer other, Act act, Check check) {
        for (const int error : faults) {
            bool isOver = false;
            for (int number = 1; !isOver; ++number) {
                std::wstring told;
                std::string failed;
                {
                    const OneFault fault(number, error, other);
                    try {
                        act();
                    } catch (const FileError& thrown) {
                        told = thrown.message();
                    }
                    isOver = !fault.hasHappened();
                    failed = fault.failed();
                }
                SCOPED_TRACE(failed + " number " + std::to_string(number) + " fails with " + std::to_string(error));
                check(told, failed);
                ASSERT_LT(number, 200);
            }
        }
    }

    void failEachCallOfAReplacement(SystemCallWatch::Answer other) {
        const std::wstring path = m_folder.file(L"a");
        const std::string old(3000, 'o');
        const std::string bytes(100000, 'n');
        m_folder.write(L"a", old);
        ASSERT_EQ(::chmod(m_folder.at(L"a").c_str(), 0640), 0);
        failEachCall(
            other, [&] { replaceFile(path, bytes); },
            [&](const std::wstring& told, const std::string& failed) {
                EXPECT_TRUE(m_folder.read(L"a") == (told.empty() ? bytes : old)) << XMLConfig::detail::toUtf8(told);
                EXPECT_EQ(modeOf(m_folder.at(L"a")), 0640u);
                EXPECT_EQ(m_folder.entries(), failed == "unlink" ? 2u : 1u);  // what the next save removes
                replaceFile(path, old);
                EXPECT_EQ(m_folder.entries(), 1u);
            });
    }

    template <typename Act>
    void failEachCallOfANewFile(SystemCallWatch::Answer other, const std::string& bytes, Act act) {
        const std::size_t entriesBefore = m_folder.entries();
        failEachCall(other, act, [&](const std::wstring& told, const std::string&) {
            EXPECT_EQ(m_folder.has(L"new"), told.empty()) << XMLConfig::detail::toUtf8(told);
            EXPECT_EQ(m_folder.entries(), entriesBefore + (told.empty() ? 1 : 0));
            if (told.empty()) {
                EXPECT_TRUE(m_folder.read(L"new") == bytes);
                fs::remove(m_folder.at(L"new"));
            }
        });
    }
};

TEST_F(SaveFaults, LeaveTheOldFileOrTheNewOne) { failEachCallOfAReplacement(nothing); }

TEST_F(SaveFaults, LeaveTheOldFileOrTheNewOneWhereNoneIsWithoutAName) { failEachCallOfAReplacement(noNameless); }

TEST_F(SaveFaults, LeaveTheOldFileOrTheNewOneInAStraightWrite) { failEachCallOfAReplacement(noRename); }

TEST_F(SaveFaults, LeaveANewFileOrNone) {
    const std::string bytes(100000, 'n');
    for (const auto other : {nothing, noNameless}) {
        failEachCallOfANewFile(other, bytes, [&] { replaceFile(m_folder.file(L"new"), bytes); });
    }
}

TEST_F(SaveFaults, LeaveACopyOrNone) {
    const std::wstring from = m_folder.write(L"from", std::string(100000, 'c'));
    for (const auto other : {nothing, noNameless}) {
        failEachCallOfANewFile(other, m_folder.read(L"from"), [&] { copyToNewFile(from, m_folder.file(L"new")); });
    }
    EXPECT_EQ(m_folder.read(L"from"), std::string(100000, 'c'));
}

}  // namespace replacetests
