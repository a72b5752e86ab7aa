#include "platform/PrivateFolder.h"

#include <vector>

#include "platform/windows/System.h"

#include <aclapi.h>
#include <sddl.h>

namespace XMLConfig::detail {
namespace {

/// What the system tells of this process's user.
template <typename Information>
class TokenInformation {
public:
    explicit TokenInformation(TOKEN_INFORMATION_CLASS kind) {
        HANDLE token = nullptr;
        if (::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return;
        DWORD size = 0;
        ::GetTokenInformation(token, kind, nullptr, 0, &size);
        m_bytes.resize(size);
        if (::GetTokenInformation(token, kind, m_bytes.data(), size, &size) == 0) m_bytes.clear();
        ::CloseHandle(token);
    }
    /// Null where the system tells nothing.
    const Information* get() const {
        return m_bytes.empty() ? nullptr : reinterpret_cast<const Information*>(m_bytes.data());
    }

private:
    std::vector<unsigned char> m_bytes;
};

/// All rights for the user and the system, none for others, to everything in the folder too.
SecurityDescriptor descriptorForUserAlone() {
    const TokenInformation<TOKEN_USER> user(TokenUser);
    wchar_t* name = nullptr;
    if (user.get() == nullptr || ::ConvertSidToStringSidW(user.get()->User.Sid, &name) == 0) return nullptr;
    const std::unique_ptr<void, LocalMemory> nameOwner(name);
    const std::wstring text = L"D:P(A;OICI;FA;;;SY)(A;OICI;FA;;;" + std::wstring(name) + L")";
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const BOOL isMade =
        ::ConvertStringSecurityDescriptorToSecurityDescriptorW(text.c_str(), SDDL_REVISION_1, &descriptor, nullptr);
    return SecurityDescriptor(isMade != 0 ? descriptor : nullptr);
}

/// True also on a disk that keeps no owners.
bool isOfThisUser(const std::wstring& name) {
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD error = ::GetNamedSecurityInfoW(name.c_str(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr,
                                                nullptr, nullptr, &descriptor);
    const SecurityDescriptor descriptorOwner(descriptor);
    if (error != ERROR_SUCCESS || owner == nullptr) return error != ERROR_ACCESS_DENIED;
    const TokenInformation<TOKEN_USER> user(TokenUser);
    const TokenInformation<TOKEN_OWNER> usual(TokenOwner);  // an administrators' group, for what such a user makes
    return (user.get() != nullptr && ::EqualSid(owner, user.get()->User.Sid) != 0) ||
           (usual.get() != nullptr && ::EqualSid(owner, usual.get()->Owner) != 0);
}

}  // namespace

FolderClaim claimFolder(const std::wstring& path) {
    const std::wstring name = systemPath(path);
    const SecurityDescriptor descriptor = descriptorForUserAlone();
    SECURITY_ATTRIBUTES security{sizeof security, descriptor.get(), FALSE};
    if (descriptor && ::CreateDirectoryW(name.c_str(), &security) != 0) return FolderClaim::own;
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || isFile(attributes)) return FolderClaim::impossible;
    const bool isOwn = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 && isOfThisUser(name);
    return isOwn ? FolderClaim::own : FolderClaim::anothers;
}

std::wstring userMark() {
    wchar_t name[256 + 1];
    DWORD size = 256 + 1;
    return ::GetUserNameW(name, &size) != 0 ? std::wstring(name, size - 1) : L"user";
}

}  // namespace XMLConfig::detail
