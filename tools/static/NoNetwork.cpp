// What Xerces-C calls of libcurl, for a tool that Xerces-C is linked into. The tool reads files only, while libcurl and the
// libraries behind it take half of the time in which the tool starts. Every function here fails.

#include <stdexcept>

namespace {

[[noreturn]] void refuse() { throw std::runtime_error("this program does not use the network"); }

constexpr int failed = 2;

}  // namespace

extern "C" {

// At the start and the end of Xerces-C, which goes on without.
int curl_global_init(long) { return failed; }
void curl_global_cleanup() {}

// A transfer begins with the first of these.
void* curl_multi_init() { refuse(); }
void* curl_easy_init() { refuse(); }
int curl_multi_add_handle(void*, void*) { refuse(); }
int curl_multi_remove_handle(void*, void*) { refuse(); }
int curl_multi_perform(void*, int*) { refuse(); }
int curl_multi_fdset(void*, void*, void*, void*, int*) { refuse(); }
int curl_multi_timeout(void*, long*) { refuse(); }
void* curl_multi_info_read(void*, int*) { refuse(); }
int curl_easy_setopt(void*, int, ...) { refuse(); }
int curl_easy_getinfo(void*, int, ...) { refuse(); }
void* curl_slist_append(void*, const char*) { refuse(); }

// What a transfer that never began leaves.
int curl_multi_cleanup(void*) { return failed; }
void curl_easy_cleanup(void*) {}
void curl_slist_free_all(void*) {}
}
