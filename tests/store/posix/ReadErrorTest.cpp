#include "tests/store/StoreSupport.h"

#ifdef __linux__

namespace storetests {

// The first page of a process is never there to be read, whoever asks.
TEST(ReadError, OfALoadTellsItsReason) {
    EXPECT_EQ(messageOf([] { const ConfigInfo document(L"/proc/self/mem"); }),
              L"Error parseDataFile: Error during parsing: /proc/self/mem Msg is: Can not read file /proc/self/mem: "
              L"Input/output error");
}

}  // namespace storetests

#endif
